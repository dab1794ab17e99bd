#pragma once

#include "app/pages/trackpad/TouchGate.h"

#include <QMouseEvent>
#include <QWidget>

class QTouchEvent;

namespace tessivo {

/// The invisible area over the trackpad's picture that receives what the window system tells of the
/// trackpad: touches of a touchpad (never of a touch screen, and never the pointer in place of a finger),
/// clicks, precise scrolling and pinches. A plain wheel is left to the page. Main thread.
class TrackpadSurface final : public QWidget {
    Q_OBJECT
public:
    explicit TrackpadSurface(QWidget* parent = nullptr);

    /// Whether a touch that begins now is meant for it: its window is active and the pointer over it.
    bool isOpen() const { return isActiveWindow() && underMouse(); }
    /// Its visible part in the coordinates of its window; empty while it is hidden.
    QRect visiblePart() const;

Q_SIGNALS:
    /// All fingers now down whose touches began while it was open; may be empty.
    void touches(const std::vector<tessivo::FingerPosition>& fingers);
    /// Any but the force click, which the window system doesn't tell.
    void gesture(tessivo::Gesture gesture);
    /// Its visible part has come to another place, by whatever moved, scrolled, resized, showed or hid it.
    void placed(const QRect& visible);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    void mouseReleaseEvent(QMouseEvent* event) override { event->accept(); }
    void wheelEvent(QWheelEvent* event) override;

private:
    bool touch(QTouchEvent& event);
    void watchAncestors();
    void look();

    TouchGate m_gate;
    QRect m_place; // as it was last told
};

} // namespace tessivo

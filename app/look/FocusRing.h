#pragma once

#include "app/look/Accessible.h"

#include <QPointer>
#include <QRectF>
#include <QWidget>

namespace tessivo {

/// The shape around which a widget's focus ring is drawn. Widgets that don't derive from it get a ring around
/// their rectangle only where `Theme` knows their kind.
class FocusShape {
public:
    virtual ~FocusShape() = default;
    /// The widget whose edge the ring follows, and the edge within it.
    virtual QWidget* focusShapeWidget() = 0;
    virtual QRectF focusShapeRect() const = 0;
    virtual double focusShapeCorner() const = 0;
    /// False for a widget that draws the ring itself, inside its edge.
    virtual bool hasOuterRing() const { return true; }
};

/// The ring around whatever has the keyboard's focus. It is a sibling drawn over everything in the same
/// scrolled column or window, so that no parent clips it, and lets the mouse through.
class FocusRing final : public QWidget, public AccessibleTraits {
    Q_OBJECT
public:
    FocusRing();

    /// Surrounds this widget, or hides for null. Given every new focus widget by Theme.
    void follow(QWidget* widget);
    QWidget* followed() const { return m_target; }

    QAccessible::Role spokenRole() const override { return QAccessible::Graphic; }
    void addSpokenState(QAccessible::State& state) const override { state.invisible = true; }
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent*) override;

private:
    void place();
    void letGo();

    QPointer<QWidget> m_target;
    QPointer<QWidget> m_shaped;
    QList<QPointer<QWidget>> m_watched;
    double m_corner = 0;
};

} // namespace tessivo

#pragma once

#include "app/look/Accessible.h"
#include "app/look/FocusShape.h"
#include "app/look/Theme.h"

#include <QAbstractButton>

namespace tessivo {

/// What everything clickable shares: Space and Return press it when it has the focus, the mouse doesn't give
/// it the focus, hover and press repaint it, disabled it is drawn at 45 %. (A QPushButton is pressed by
/// Return in dialogs alone, and takes the focus from the mouse. Of a checkable one the bridge's own action
/// changes the state without a click, which is what pages listen to.)
class ClickControl : public QAbstractButton, public AccessibleTraits, public FocusShape {
    Q_OBJECT
public:
    explicit ClickControl(QWidget* parent = nullptr);

    QAccessible::Role spokenRole() const override { return QAccessible::Button; }
    QString spokenName() const override { return text(); }
    double focusShapeCorner() const override { return m_corner; }

protected:
    bool isHovered() const { return isEnabled() && underMouse(); }
    void setCorner(double corner) { m_corner = corner; }
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    double m_corner = 0;
};

} // namespace tessivo

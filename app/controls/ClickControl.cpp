#include "app/controls/ClickControl.h"

#include <QKeyEvent>

namespace tessivo {
namespace {

bool isReturn(const QKeyEvent& event) {
    return (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) &&
           !(event.modifiers() & ~Qt::KeypadModifier);
}

} // namespace

ClickControl::ClickControl(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
}

bool ClickControl::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && isReturn(*static_cast<QKeyEvent*>(event))) {
        // Or a default action of the page would take the Return that is meant for this one.
        event->accept();
        return true;
    }
    return QAbstractButton::event(event);
}

void ClickControl::keyPressEvent(QKeyEvent* event) {
    if (isReturn(*event)) {
        if (!event->isAutoRepeat()) click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

} // namespace tessivo

#pragma once

#include "app/controls/Picker.h"
#include "tests/app/pages/PageFixture.h"

#include <QApplication>
#include <QKeyEvent>

namespace tessivo::pagetest {

/// Scan codes as the window system reports them: the kernel's code + 8.
namespace Scan {
inline constexpr quint32 escape = 9, one = 10, tab = 23, q = 24, returnKey = 36, control = 37, a = 38,
                         leftOfOne = 49, space = 65, keypadSeven = 79, besideShift = 94, left = 113,
                         right = 114, unknown = 250;
} // namespace Scan

/// A page whose keys are struck as the window system would: on whatever has the focus, with a scan code.
class InputFixture : public PageFixture {
protected:
    /// A picker by the name it was given; Qt speaks a combo box by its present choice on Linux.
    Picker* picker(const char* name) {
        for (auto* each : view->findChildren<Picker*>())
            if (each->isVisibleTo(view.get()) && each->accessibleName() == QString::fromUtf8(name))
                return each;
        return nullptr;
    }
    static void send(QEvent::Type type, quint32 scanCode, bool repeat = false,
                     Qt::KeyboardModifiers modifiers = {}, QWidget* to = nullptr) {
        QWidget* target = to ? to : QApplication::focusWidget();
        if (!target) target = QApplication::activeWindow();
        if (!target) return;
        const int key = scanCode == Scan::escape ? Qt::Key_Escape : Qt::Key_A;
        QKeyEvent event(type, key, modifiers, scanCode, 0, 0, QString(), repeat);
        QApplication::sendEvent(target, &event);
    }
    static void strike(quint32 scanCode, QWidget* to = nullptr) {
        send(QEvent::KeyPress, scanCode, false, {}, to);
        send(QEvent::KeyRelease, scanCode, false, {}, to);
    }
};

} // namespace tessivo::pagetest

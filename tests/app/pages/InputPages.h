#pragma once

#include "app/controls/Picker.h"
#include "tests/app/pages/PageFixture.h"

#include <QApplication>
#include <QKeyEvent>

namespace tessivo::pagetest {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

/// Scan codes as the window system reports them: the kernel's code + 8.
namespace Scan {
inline constexpr quint32 escape = 9, returnKey = 36, a = 38, leftOfOne = 49, space = 65, keypadSeven = 79,
                         left = 113, right = 114, unknown = 250;
} // namespace Scan

/// A page whose keys are struck as the window system would: on whatever has the focus, with a scan code.
class InputFixture : public PageFixture {
protected:
    bool has(const char* name) { return findByName<QWidget>(view.get(), QString::fromUtf8(name)); }
    QString value(const char* name) {
        return accessibleValueOf(findByName<QWidget>(view.get(), QString::fromUtf8(name)));
    }
    /// A picker by the name it was given; Qt speaks a combo box by its present choice on Linux.
    Picker* picker(const char* name) {
        for (auto* each : view->findChildren<Picker*>())
            if (each->isVisibleTo(view.get()) && each->accessibleName() == QString::fromUtf8(name))
                return each;
        return nullptr;
    }
    /// Every key but Esc would write an "a" into a text field.
    static void send(QEvent::Type type, quint32 scanCode, QWidget* to, bool repeat = false) {
        const bool escape = scanCode == Scan::escape;
        QKeyEvent event(type, escape ? Qt::Key_Escape : Qt::Key_A, {}, scanCode, 0, 0,
                        escape ? QString() : QStringLiteral("a"), repeat);
        QApplication::sendEvent(to, &event);
    }
    static void strike(quint32 scanCode, QWidget* to) {
        send(QEvent::KeyPress, scanCode, to);
        send(QEvent::KeyRelease, scanCode, to);
    }
};

} // namespace tessivo::pagetest

#pragma once

#include "app/controls/GrowingTextField.h"
#include "app/pages/Pages.h"
#include "platform/simulated/MachineFile.h"
#include "platform/simulated/ManualScheduler.h"
#include "platform/simulated/SimulatedControls.h"
#include "platform/simulated/SimulatedPlatform.h"
#include "tests/app/ScriptedDialogs.h"
#include "tests/window/XServer.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QMainWindow>
#include <QMenuBar>
#include <QTest>
#include <gmock/gmock.h>

namespace tessivo::windowtest {

inline QString nameOf(QWidget* widget) {
    auto* spoken = QAccessible::queryAccessibleInterface(widget);
    return spoken ? spoken->text(QAccessible::Name) : QString();
}

inline bool eventually(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, 10'000);
}

/// Events that the server sent already are handled, and those that follow from them.
inline void settle() {
    QTest::qWait(60);
}

/// One page in a window with menus, on the real server.
class PageWindow : public ::testing::Test {
protected:
    void open(Page page) {
        window.setWindowTitle(QStringLiteral("Tessivo under test"));
        QMenu* file = window.menuBar()->addMenu(QStringLiteral("&File"));
        file->addAction(QStringLiteral("Close"), QKeySequence(Qt::CTRL | Qt::Key_W), [this] { ++closes; });
        file->addAction(QStringLiteral("Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), [this] { ++quits; });
        window.setCentralWidget(makePage(page, {model, dialogs}, nullptr));
        window.setGeometry(40, 40, 960, 1100);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window, 20'000));
        settle();
    }
    QAbstractButton* button(const QString& name) {
        for (auto* each : window.findChildren<QAbstractButton*>())
            if (each->isVisible() && nameOf(each) == name) return each;
        return nullptr;
    }
    GrowingTextField* note() { return window.findChild<GrowingTextField*>(); }
    const SessionState& state() const { return model.state(); }

    ManualScheduler clock;
    SimulatedPlatform platform{loadMachineFile(TESSIVO_MACHINES "/macbook-air-m2.json"), clock};
    SimulatedControls controls{platform};
    AppModel model{platform};
    pagetest::ScriptedDialogs dialogs;
    QMainWindow window;
    int closes = 0, quits = 0;
};

} // namespace tessivo::windowtest

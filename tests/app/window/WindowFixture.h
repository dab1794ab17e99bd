#pragma once

#include "app/controls/RowList.h"
#include "app/window/AppDelegate.h"
#include "app/window/RootView.h"
#include "platform/simulated/ManualScheduler.h"
#include "platform/simulated/SimulatedControls.h"
#include "tests/app/PageTesting.h"
#include "tests/app/ScriptedDialogs.h"

#include <QTest>
#include <gmock/gmock.h>

namespace tessivo::pagetest {

/// The whole window on a simulated Mac, with a clock that is moved by hand and dialogs answered by a script.
class WindowFixture : public testing::Test {
protected:
    static constexpr int patience = 5000; // milliseconds that another thread may take

    void useMachine(const std::string& name) {
        end();
        controls.reset();
        mac = std::make_unique<SimulatedPlatform>(
            loadMachineFile(std::string(TESSIVO_MACHINES "/") + name + ".json"), clock);
        controls = std::make_unique<SimulatedControls>(*mac);
    }
    void SetUp() override { useMachine("macbook-air-m2"); }
    void TearDown() override { end(); }

    /// Starts the application and waits until it has read what it reads at a start.
    void launch(QSize size = QSize(1180, 780)) {
        start();
        showAt(window(), size);
        ASSERT_TRUE(finishReading());
    }
    void start() { app = std::make_unique<AppDelegate>(*mac, dialogs); }
    void end() {
        app.reset();
        settle();
    }

    AppModel& model() { return app->model(); }
    RootView& window() { return app->window(); }
    bool finishReading() {
        return QTest::qWaitFor([this] { return !model().reading(); }, patience);
    }
    void answer(const std::function<void(SessionState&)>& action) {
        model().change(action);
        settle();
    }

    std::vector<SidebarRow*> rows() {
        std::vector<SidebarRow*> shown;
        for (auto* row : window().findChildren<SidebarRow*>())
            if (row->isVisible()) shown.push_back(row);
        std::ranges::sort(shown, {}, [](SidebarRow* row) { return row->mapToGlobal(QPoint()).y(); });
        return shown;
    }
    SidebarRow* row(Page page) {
        for (auto* each : rows())
            if (each->title() == title(page)) return each;
        return nullptr;
    }
    /// The titles of the selected rows.
    QStringList selected() {
        QStringList titles;
        for (auto* each : rows())
            if (each->isChecked()) titles << each->title();
        return titles;
    }
    /// Whether the page's own heading is shown; History goes without one.
    bool showsPage(Page page) {
        QString heading = QString::fromUtf8(title(page));
        if (page == Page::overview) heading = QString::fromStdString(model().state().machine.displayName());
        if (page == Page::history) heading = QStringLiteral("Add Report Files…");
        return window().pageView()->isVisible() && shownTexts(window().pageView()).contains(heading);
    }

    ManualScheduler clock{Date{794'000'000}};
    std::unique_ptr<SimulatedPlatform> mac;
    std::unique_ptr<SimulatedControls> controls;
    ScriptedDialogs dialogs;
    std::unique_ptr<AppDelegate> app;
};

} // namespace tessivo::pagetest

#pragma once

#include "app/pages/Pages.h"
#include "platform/simulated/MachineFile.h"
#include "platform/simulated/ManualScheduler.h"
#include "platform/simulated/SimulatedControls.h"
#include "tests/app/PageTesting.h"
#include "tests/app/ScriptedDialogs.h"

#include <gmock/gmock.h>

namespace tessivo::pagetest {

/// A simulated Mac, the model on it and one page of it, on a clock that is moved by hand.
class PageFixture : public testing::Test {
protected:
    /// Starts anew on the Mac of a machine file, "mac-mini-m4"; pages open on a MacBook Air otherwise.
    void useMachine(const std::string& name) {
        close();
        model.reset();
        controls.reset();
        platform = std::make_unique<SimulatedPlatform>(
            loadMachineFile(std::string(TESSIVO_MACHINES "/") + name + ".json"), clock);
        controls = std::make_unique<SimulatedControls>(*platform);
        model = std::make_unique<AppModel>(*platform);
    }

    void SetUp() override { useMachine("macbook-air-m2"); }

    void open(Page page) {
        close();
        view.reset(makePage(page, {*model, dialogs}, nullptr));
        showAt(*view, QSize(950, 752));
    }
    void close() { view.reset(); }

    void pass(std::chrono::milliseconds time) {
        clock.advance(time);
        settle();
    }

    const SessionState& state() const { return model->state(); }
    bool shown(const char* text) { return shows(view.get(), QString::fromUtf8(text)); }
    bool press(const char* name) { return clickOn(view.get(), QString::fromUtf8(name)); }

    ManualScheduler clock{Date{794'000'000}};
    std::unique_ptr<SimulatedPlatform> platform;
    std::unique_ptr<SimulatedControls> controls;
    std::unique_ptr<AppModel> model;
    ScriptedDialogs dialogs;
    std::unique_ptr<QWidget> view;
};

} // namespace tessivo::pagetest

#pragma once

#include "app/dialogs/Dialogs.h"
#include "app/window/AppDelegate.h"
#include "platform/qt/QtScheduler.h"
#include "platform/simulated/SimulatedControls.h"

namespace tessivo::demo {

/// A simulated Mac with the application running on it. What it stores lies in "Tessivo Demo", apart from the
/// real program's, each machine with its own defaults.
class DemoMac final {
public:
    /// Where all of it lies.
    static std::filesystem::path folder();
    /// The machines there are, by name.
    static std::vector<std::string> names();

    /// Throws std::runtime_error if there is no such machine file or it can't be read.
    DemoMac(const std::string& name, Dialogs& dialogs);
    /// Stores the session, as quitting does.
    ~DemoMac();

    SimulatedControls& controls() { return m_controls; }
    AppDelegate& application() { return m_application; }

private:
    QtScheduler m_scheduler;
    SimulatedPlatform m_platform;
    SimulatedControls m_controls;
    AppDelegate m_application;
};

} // namespace tessivo::demo

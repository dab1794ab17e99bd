#pragma once

#include "platform/Platform.h"
#include "platform/qt/QtKeyEvents.h"
#include "platform/simulated/SimulatedAudio.h"
#include "platform/simulated/SimulatedCapture.h"
#include "platform/simulated/SimulatedDefaults.h"
#include "platform/simulated/SimulatedDesk.h"
#include "platform/simulated/SimulatedFolders.h"
#include "platform/simulated/SimulatedMachineFacts.h"
#include "platform/simulated/SimulatedRegistry.h"
#include "platform/simulated/SimulatedTools.h"
#include "platform/simulated/SimulatedWording.h"

namespace tessivo {

/// A Mac from a machine file. It gives back what the file holds and records what it is asked to do; it
/// holds no arithmetic and no wording. `SimulatedControls` changes it while it runs; a change is signalled
/// by nothing, as on a real machine. Made and used on the main thread.
class SimulatedPlatform final : public Platform {
public:
    struct Storage {
        std::filesystem::path defaults; ///< an ini file; empty: in memory
        /// Absent: one temporary folder, which goes with the platform.
        std::optional<std::vector<std::filesystem::path>> applicationSupport;
    };

    /// The scheduler outlives the platform: one moved by hand in tests, the event loop's in the demo.
    SimulatedPlatform(MachineFile machine, Scheduler& scheduler, const Storage& storage = {})
        : m_scheduler(scheduler),
          m_mac{std::move(machine)},
          m_defaults(m_mac, storage.defaults),
          m_folders(storage.applicationSupport) {}

    Scheduler& scheduler() override { return m_scheduler; }
    MachineFacts& machineFacts() override { return m_machineFacts; }
    Registry& registry() override { return m_registry; }
    PowerSources& powerSources() override { return m_powerSources; }
    SystemTools& systemTools() override { return m_systemTools; }
    AudioObjects& audioObjects() override { return m_audioObjects; }
    ToneOutput& toneOutput() override { return m_toneOutput; }
    CaptureDevices& captureDevices() override { return m_captureDevices; }
    KeyEvents& keyEvents() override { return m_keyEvents; }
    FingerTouches& fingerTouches() override { return m_fingerTouches; }
    Defaults& defaults() override { return m_defaults; }
    Folders& folders() override { return m_folders; }
    Desktop& desktop() override { return m_desktop; }
    PersonalSettings& personalSettings() override { return m_person; }
    UpdateFramework& updateFramework() override { return m_updateFramework; }
    WordingService& wordingService() override { return m_wordingService; }

private:
    friend class SimulatedControls;

    Scheduler& m_scheduler;
    SimulatedMac m_mac;
    SimulatedMachineFacts m_machineFacts{m_mac};
    SimulatedRegistry m_registry{m_mac};
    SimulatedPowerSources m_powerSources{m_mac};
    SimulatedTools m_systemTools{m_mac.facts};
    SimulatedAudioObjects m_audioObjects{m_mac};
    SimulatedToneOutput m_toneOutput{m_mac};
    SimulatedCapture m_captureDevices{m_mac, m_scheduler};
    QtKeyEvents m_keyEvents;
    SimulatedFingers m_fingerTouches{m_mac};
    SimulatedDefaults m_defaults;
    SimulatedFolders m_folders;
    SimulatedDesktop m_desktop{m_mac};
    SimulatedPerson m_person{m_mac};
    SimulatedUpdates m_updateFramework{m_mac};
    SimulatedWording m_wordingService;
};

} // namespace tessivo

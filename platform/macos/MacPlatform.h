#pragma once

#include "platform/Platform.h"
#include "platform/macos/MacAudioObjects.h"
#include "platform/macos/MacCaptureDevices.h"
#include "platform/macos/MacDefaults.h"
#include "platform/macos/MacDesktop.h"
#include "platform/macos/MacFingerTouches.h"
#include "platform/macos/MacKeyEvents.h"
#include "platform/macos/MacMachineFacts.h"
#include "platform/macos/MacPersonalSettings.h"
#include "platform/macos/MacRegistry.h"
#include "platform/macos/MacSystemTools.h"
#include "platform/macos/MacToneOutput.h"
#include "platform/qt/NoWordingService.h"
#include "platform/qt/QtFolders.h"
#include "platform/qt/QtScheduler.h"
#include "platform/qt/ReleasesPage.h"

namespace tessivo {

/// This Mac. Its language model can't be asked from C++: there is none here.
class MacPlatform final : public Platform {
public:
    /// The identifier under which this program's preferences stand; the support tool has none of its own and
    /// reads those of the program.
    static constexpr const char* applicationID = "example.tessivo.Tessivo";

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
    PersonalSettings& personalSettings() override { return m_personalSettings; }
    UpdateFramework& updateFramework() override { return m_updateFramework; }
    WordingService& wordingService() override { return m_wordingService; }

private:
    QtScheduler m_scheduler;
    MacMachineFacts m_machineFacts;
    MacRegistry m_registry;
    MacPowerSources m_powerSources;
    MacSystemTools m_systemTools;
    MacAudioObjects m_audioObjects;
    MacToneOutput m_toneOutput;
    MacCaptureDevices m_captureDevices;
    MacKeyEvents m_keyEvents;
    MacFingerTouches m_fingerTouches;
    MacDefaults m_defaults{applicationID};
    QtFolders m_folders;
    MacDesktop m_desktop;
    MacPersonalSettings m_personalSettings;
    ReleasesPage m_updateFramework{m_desktop};
    NoWordingService m_wordingService;
};

} // namespace tessivo

#pragma once

#include "platform/Platform.h"
#include "platform/linux/LinuxAudioObjects.h"
#include "platform/linux/LinuxCaptureDevices.h"
#include "platform/linux/LinuxDefaults.h"
#include "platform/linux/LinuxDesktop.h"
#include "platform/linux/LinuxFingerTouches.h"
#include "platform/linux/LinuxMachineFacts.h"
#include "platform/linux/LinuxPersonalSettings.h"
#include "platform/linux/LinuxRegistry.h"
#include "platform/linux/LinuxSystemTools.h"
#include "platform/linux/LinuxToneOutput.h"
#include "platform/linux/MediaBackend.h"
#include "platform/qt/NoWordingService.h"
#include "platform/qt/QtFolders.h"
#include "platform/qt/QtKeyEvents.h"
#include "platform/qt/QtScheduler.h"
#include "platform/qt/ReleasesPage.h"

namespace tessivo {

/// This computer under Linux. With another root than "/" machine facts, registry, power sources and
/// tools come from the tree below it; sound, capture and input are always this computer's.
class LinuxPlatform final : public Platform {
public:
    /// `record` keeps what facts are made from; it may be null.
    explicit LinuxPlatform(const std::filesystem::path& root = "/",
                           std::shared_ptr<SourceRecord> record = nullptr);

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

    void waitForDevices() override;

private:
    MediaBackend m_mediaBackend;
    QtScheduler m_scheduler;
    LinuxMachineFacts m_machineFacts;
    LinuxRegistry m_registry;
    LinuxPowerSources m_powerSources;
    LinuxSystemTools m_systemTools;
    std::shared_ptr<PulseServer> m_soundServer = std::make_shared<PulseServer>();
    LinuxAudioObjects m_audioObjects{m_soundServer};
    LinuxToneOutput m_toneOutput{m_soundServer};
    LinuxCaptureDevices m_captureDevices;
    QtKeyEvents m_keyEvents;
    LinuxFingerTouches m_fingerTouches;
    LinuxDefaults m_defaults;
    QtFolders m_folders;
    LinuxDesktop m_desktop;
    LinuxPersonalSettings m_personalSettings;
    ReleasesPage m_updateFramework;
    NoWordingService m_wordingService;
};

} // namespace tessivo

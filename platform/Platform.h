#pragma once

#include "platform/AudioObjects.h"
#include "platform/Capture.h"
#include "platform/Desktop.h"
#include "platform/FingerTouches.h"
#include "platform/KeyEvents.h"
#include "platform/MachineFacts.h"
#include "platform/PersonalSettings.h"
#include "platform/Registry.h"
#include "platform/Scheduler.h"
#include "platform/SourceRecord.h"
#include "platform/Storage.h"
#include "platform/SystemTools.h"

namespace tessivo {

/// All that the application asks of the computer it runs on. It owns what it gives out and outlives
/// whoever asks. Made and used on the main thread, but for what each interface says of itself.
class Platform {
public:
    virtual ~Platform() = default;

    virtual Scheduler& scheduler() = 0;
    virtual MachineFacts& machineFacts() = 0;
    virtual Registry& registry() = 0;
    virtual PowerSources& powerSources() = 0;
    virtual SystemTools& systemTools() = 0;
    virtual AudioObjects& audioObjects() = 0;
    virtual ToneOutput& toneOutput() = 0;
    virtual CaptureDevices& captureDevices() = 0;
    virtual KeyEvents& keyEvents() = 0;
    virtual FingerTouches& fingerTouches() = 0;
    virtual Defaults& defaults() = 0;
    virtual Folders& folders() = 0;
    virtual Desktop& desktop() = 0;
    virtual PersonalSettings& personalSettings() = 0;
    virtual UpdateFramework& updateFramework() = 0;
    virtual WordingService& wordingService() = 0;

    /// Waits until devices that make themselves known after the start have done so, for two seconds at
    /// most. For a support tool that asks once; the window goes on instead.
    virtual void waitForDevices() {}
};

/// The platform this build runs on; the build chooses the one file that defines it. A support tool hands in
/// a record, which then keeps what facts are made from, as far as that is files.
std::unique_ptr<Platform> makePlatform(std::shared_ptr<SourceRecord> record = nullptr);

} // namespace tessivo

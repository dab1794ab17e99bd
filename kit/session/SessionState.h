#pragma once

#include "kit/hardware/BatteryReading.h"
#include "kit/hardware/EnrollmentStatus.h"
#include "kit/hardware/MachineInfo.h"
#include "kit/session/ActivationLockAnswer.h"
#include "kit/session/CaptureReadings.h"
#include "kit/session/DisplayTest.h"
#include "kit/session/EthernetTest.h"
#include "kit/session/HandoverChecklist.h"
#include "kit/session/HeadphoneTest.h"
#include "kit/session/KeyboardTest.h"
#include "kit/session/PortChecklist.h"
#include "kit/session/SpeakerTest.h"
#include "kit/session/TrackpadTest.h"
#include "kit/support/Date.h"
#include "kit/vocabulary/TestResult.h"
#include "kit/vocabulary/UserOverride.h"

namespace tessivo {

/// Everything measured on this Mac or answered about it, in one plain value. It holds readings and
/// answers, never verdicts. Changed on the main thread only.
struct SessionState {
    MachineInfo machine;
    Date started;
    std::optional<EnrollmentStatus> enrollment;
    bool enrollmentChecked = false;
    ActivationLockAnswer activationLock = ActivationLockAnswer::unanswered;
    KeyboardTest keyboard;
    TrackpadTest trackpad;
    DisplayTest display;
    SpeakerTest speakers;
    std::vector<MicReading> microphones;
    bool microphonesListed = false;
    bool microphoneDenied = false;
    std::vector<CameraReading> cameras;
    bool camerasListed = false;
    bool cameraDenied = false;
    PortChecklist ports = PortChecklist::make(2);
    std::optional<std::int64_t> listedStorageGB; ///< in table units
    std::optional<BatteryReading> battery;
    std::optional<HeadphoneTest> headphones;
    std::optional<EthernetTest> ethernet;
    std::map<TestID, UserOverride> overrides;
    std::optional<HandoverChecklist> handover;

    SessionState() = default;
    SessionState(MachineInfo machine, Date started) : machine(std::move(machine)), started(started) {}

    std::optional<MacKind> kind() const;
    /// The tests that apply to this Mac: all, less the Ethernet port of a laptop.
    std::vector<TestID> tests() const;

    /// One JSON object on one line. `decode` throws DecodingError.
    std::string encode() const;
    static SessionState decode(std::string_view json);

    bool operator==(const SessionState&) const = default;
};
BOOST_DESCRIBE_STRUCT(SessionState, (),
                      (machine, started, enrollment, enrollmentChecked, activationLock, keyboard, trackpad,
                       display, speakers, microphones, microphonesListed, microphoneDenied, cameras,
                       camerasListed, cameraDenied, ports, listedStorageGB, battery, headphones, ethernet,
                       overrides, handover))

} // namespace tessivo

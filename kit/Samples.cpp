#include "kit/Samples.h"

namespace tessivo {
namespace {

constexpr Date started{794'444'400.25}; ///< March 5, 2026, 23:00 UTC

EnrollmentStatus notEnrolled() {
    return {false, false, "No"};
}

KeyboardTest answeredKeyboard() {
    KeyboardTest test;
    test.pressed = KeyboardLayout::ansi().codes();
    const KeyCode fn = 63;
    test.pressed.erase(fn);
    test.handChecked = {fn};
    for (const ManualKeyCheck& check : ManualKeyCheck::all())
        test.manual[check.id] = ManualAnswer::works;
    return test;
}

TrackpadTest answeredTrackpad() {
    TrackpadTest test;
    for (std::int64_t cell = 0; cell < TrackpadTest::columns * TrackpadTest::rows; ++cell)
        test.touched.insert(cell);
    test.maxFingers = 3;
    test.clicked = test.secondaryClicked = test.forceClicked = test.scrolled = test.zoomed = true;
    return test;
}

DisplayTest answeredDisplay(const std::string& screen) {
    DisplayTest test;
    test.shown = {DisplayTest::colors().begin(), DisplayTest::colors().end()};
    test.answer = ManualAnswer::works;
    test.screenName = screen;
    return test;
}

PortChecklist answeredPorts() {
    const USBDevice drive{"USB Flash Drive", "Generic", 4660, 17185, 17'825'792, 3, 0};
    PortChecklist ports = PortChecklist::make(2);
    for (std::uint32_t port = 0; port < 2; ++port) {
        USBDevice plugged = drive;
        plugged.locationID += port << 24;
        ports.update({});
        ports.update({plugged});
    }
    return ports;
}

BatteryReading laptopBattery() {
    BatteryReading reading;
    reading.present = true;
    reading.cycleCount = 143;
    reading.designCycleCount = 1000;
    reading.designCapacity = 4563;
    reading.fullChargeCapacity = 4103;
    reading.condition = "Normal";
    reading.source = BatteryReading::Source::registry;
    return reading;
}

EthernetTest linkSeen() {
    EthernetTest test;
    WiredInterface port{"en0", true, "AppleBCM5701Ethernet", "IOEthernetInterface", false, std::nullopt};
    test.record({port});
    port.linkActive = true;
    port.linkSpeed = 1'000'000'000;
    test.record({port});
    test.sawDown.clear(); // as it comes back from a save
    return test;
}

/// What every kind of Mac has, answered.
SessionState common(const MachineInfo& machine) {
    SessionState state(machine, started);
    state.enrollment = notEnrolled();
    state.enrollmentChecked = true;
    state.activationLock = ActivationLockAnswer::disabled;
    state.keyboard = answeredKeyboard();
    state.trackpad = answeredTrackpad();
    state.ports = answeredPorts();
    state.listedStorageGB = machine.marketedStorageGB();
    state.headphones = HeadphoneTest{true, "External Headphones", ManualAnswer::works, ManualAnswer::works};
    state.microphonesListed = true;
    state.camerasListed = true;
    state.handover = HandoverChecklist{
        {HandoverStep::backup, HandoverStep::music, HandoverStep::findMy, HandoverStep::appleAccount}};
    return state;
}

void addBuiltInScreen(SessionState& state, const std::string& maker) {
    state.display = answeredDisplay("Built-in Retina Display");
    state.speakers.outputName = maker + " Speakers";
    state.speakers.left = state.speakers.right = ManualAnswer::works;
    state.microphones = {{"BuiltInMicrophoneDevice", maker + " Microphone", -14.25, false}};
    state.cameras = {{"3F45E80A0176", "FaceTime HD Camera", true, false, ManualAnswer::works}};
}

} // namespace

MachineInfo Samples::machine() {
    MachineInfo machine;
    machine.modelID = "Mac14,2";
    machine.serial = "J4N7WQX2PL";
    machine.chip = "Apple M2";
    machine.memoryBytes = 17'179'869'184;
    machine.osVersion = "macOS 26.1 (25B78)";
    machine.storageBytes = 494'384'795'648;
    return machine;
}

SessionState Samples::session() {
    SessionState state = session(machine());
    state.display.answer = ManualAnswer::problem;
    state.overrides[TestID::display].problem =
        "One green dot stays lit near the left edge, about 3 cm from the top. It only shows on black.";
    return state;
}

SessionState Samples::session(const MachineInfo& machine) {
    SessionState state = common(machine);
    const auto kind = state.kind();
    if (kind == MacKind::laptop) {
        addBuiltInScreen(state, machine.modelID.starts_with("MacBookPro") ? "MacBook Pro" : "MacBook Air");
        state.battery = laptopBattery();
        return state;
    }
    state.battery = BatteryReading{.source = BatteryReading::Source::none};
    state.ethernet = linkSeen();
    if (kind == MacKind::allInOne) {
        addBuiltInScreen(state, "iMac");
    } else {
        // A Mac without a screen is sold alone, and its one speaker plays one tone.
        for (const TestID test : {TestID::keyboard, TestID::trackpad})
            state.overrides[test].notIncluded = true;
        state.display.answer = ManualAnswer::notPresent;
        state.speakers.channels = 1;
        state.speakers.outputName = "Mac mini Speakers";
        state.speakers.both = ManualAnswer::works;
    }
    return state;
}

std::string Samples::notes() {
    return "Small scuff on the bottom left corner, no dents. Comes with the original 30 W charger and the "
           "MagSafe cable.";
}

} // namespace tessivo

#include "kit/session/SessionState.h"
#include "kit/support/Json.h"
#include "kit/support/Text.h"
#include "tests/kit/RandomSession.h"

#include <bit>
#include <gtest/gtest.h>

namespace tessivo {
namespace {

/// A session in which every optional member has a value, so that every key can be tried.
SessionState fullSession() {
    SessionState state(MachineInfo{"Mac14,2", "C02TEST", "M2", 8'589'934'592, "14.4", 245'107'195'904},
                       Date{794419629.25});
    state.enrollment = EnrollmentStatus{false, true, "Yes"};
    state.keyboard.pressed = {0, 65535};
    state.keyboard.manual = {{"touchID", ManualAnswer::works}};
    state.display.screenName = "Color LCD";
    state.speakers.outputName = "Speakers";
    state.microphones = {{"mic", "Microphone", -12.5, false}};
    state.cameras = {{"cam", "Camera", true, false, ManualAnswer::works}};
    state.ports.slots[0].device = USBDevice{"Stick", "Maker", 1452, 4352, 338690048, 3, 9};
    state.listedStorageGB = 256;
    state.battery = BatteryReading{true, 88, 1000, 5103, 4600, "Normal", BatteryReading::Source::registry};
    state.headphones = HeadphoneTest{true, "Headphones"};
    state.ethernet = EthernetTest{true, {"en0"}, "en0", 1'000'000'000, true, {}};
    state.overrides = {{TestID::display, {false, "Scratch"}}};
    state.handover = HandoverChecklist{{HandoverStep::backup}};
    return state;
}

std::string fullText() {
    return fullSession().encode();
}

std::string with(const std::string& what, const std::string& instead) {
    const std::string text = fullText();
    EXPECT_NE(text.find(what), std::string::npos) << what << " in " << text;
    return Text::replaced(text, what, instead);
}

std::string faultOf(const std::string& json) {
    try {
        SessionState::decode(json);
    } catch (const DecodingError& error) {
        return error.what();
    }
    return {};
}

TEST(SessionCodec, randomSessionsSurviveAnyNumberOfSaves) {
    RandomSession random(1);
    for (int i = 0; i < 10'000; ++i) {
        const SessionState state = random.session();
        const std::string text = state.encode();
        const SessionState read = SessionState::decode(text);
        ASSERT_EQ(read, state) << text;
        ASSERT_EQ(std::bit_cast<std::uint64_t>(read.started.seconds),
                  std::bit_cast<std::uint64_t>(state.started.seconds))
            << text;
        ASSERT_EQ(read.encode(), text);
    }
}

TEST(SessionCodec, aNewSessionHasItsSixteenRequiredKeysAlone) {
    EXPECT_EQ(SessionState(
                  MachineInfo{.modelID = "Mac14,2", .memoryBytes = 18446744073709551615u, .osVersion = "14"},
                  Date{794419200})
                  .encode(),
              R"({"machine":{"modelID":"Mac14,2","memoryBytes":18446744073709551615,"osVersion":"14"},)"
              R"("started":794419200,"enrollmentChecked":false,"activationLock":"unanswered",)"
              R"("keyboard":{"layout":"ansi","pressed":[],"handChecked":[],"manual":{}},)"
              R"("trackpad":{"touched":[],"maxFingers":0,"clicked":false,"secondaryClicked":false,)"
              R"("forceClicked":false,"scrolled":false,"zoomed":false},)"
              R"("display":{"shown":[],"answer":"unanswered"},)"
              R"("speakers":{"channels":2,"left":"unanswered","right":"unanswered","both":"unanswered"},)"
              R"("microphones":[],"microphonesListed":false,"microphoneDenied":false,)"
              R"("cameras":[],"camerasListed":false,"cameraDenied":false,)"
              R"("ports":{"slots":[{"id":1,"answer":"unanswered"},{"id":2,"answer":"unanswered"}],)"
              R"("active":1,"known":[],"baselineTaken":false},"overrides":[]})");
}

TEST(SessionCodec, whatWasSeenDownIsNotStored) {
    SessionState state = fullSession();
    state.ethernet->sawDown = {"en0"};
    EXPECT_EQ(SessionState::decode(state.encode()), fullSession());
}

TEST(SessionCodec, toleratesWhatOlderAndNewerVersionsWrite) {
    const SessionState state = fullSession();
    const std::string shape = R"(,"future":{"deep":[[{"a":1e400}]],"huge":123456789012345678901234567890}})";
    EXPECT_EQ(SessionState::decode(fullText().substr(0, fullText().size() - 1) + shape), state);
    EXPECT_EQ(SessionState::decode("\xEF\xBB\xBF" + fullText()), state);
    EXPECT_EQ(SessionState::decode(with(R"("name":"Stick")", R"("name":"Old","name":"Stick")")), state);
    EXPECT_EQ(SessionState::decode(with(R"("cycleCount":88)", R"("cycleCount":88.0)")), state);
    EXPECT_EQ(SessionState::decode(with(R"("cycleCount":88)", R"("cycleCount":8.8e1)")), state);
    SessionState large = state;
    large.battery->cycleCount = 10'000'000'000'000'000;
    large.machine.memoryBytes = 18'446'744'073'709'551'615u;
    large.microphones[0].peak = 1e20;
    const std::string cycles = Text::replaced(large.encode(), ":10000000000000000,", ":1e16,");
    EXPECT_EQ(SessionState::decode(Text::replaced(cycles, ":1e+20,", ":100000000000000000000,")), large);
    EXPECT_EQ(SessionState::decode(
                  Text::replaced(cycles, ":18446744073709551615,", ":1844674407370955161500.0e-2,")),
              large);
    EXPECT_EQ(
        SessionState::decode(with(R"("overrides":[)", R"("overrides":["display",{"notIncluded":true},)")),
        state);

    SessionState without = state;
    without.handover.reset();
    EXPECT_EQ(SessionState::decode(with(R"(,"handover":{"ticked":["backup"]})", "")), without);
    EXPECT_EQ(SessionState::decode(with(R"({"ticked":["backup"]})", "null")), without);
    EXPECT_EQ(SessionState::decode(with(R"("manual":{)", R"("manual":{"backlight":null,)")), state);
}

TEST(SessionCodec, everyOtherFaultLosesTheWholeAndNamesItsPath) {
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {R"("overrides":["display",{"notIncluded":false,"problem":"Scratch"}],)", "", "overrides: missing"},
        {R"("started":794419629.25)", R"("started":null)", "started: missing"},
        {R"("started":794419629.25)", R"("started":"2026")", "started: not a number but a text"},
        {R"("started":794419629.25)", R"("started":1e400)", "started: out of range"},
        {R"("memoryBytes":8589934592)", R"("memoryBytes":-1)", "machine.memoryBytes: out of range"},
        {R"("memoryBytes":8589934592)", R"("memoryBytes":18446744073709551616)",
         "machine.memoryBytes: out of range"},
        {R"("memoryBytes":8589934592)", R"("memoryBytes":1e99999999999999999999)",
         "machine.memoryBytes: out of range"},
        {R"("memoryBytes":8589934592)", R"("memoryBytes":9007199254740993.5)",
         "machine.memoryBytes: not a whole number"},
        {R"("storageBytes":245107195904)", R"("storageBytes":9223372036854775808)",
         "machine.storageBytes: out of range"},
        {R"("locationID":338690048)", R"("locationID":4294967296)",
         "ports.slots[0].device.locationID: out of range"},
        {"[0,65535]", "[0,65536]", "keyboard.pressed[1]: out of range"},
        {"[0,65535]", "[-1,65535]", "keyboard.pressed[0]: out of range"},
        {"[0,65535]", "[0,1.5]", "keyboard.pressed[1]: not a whole number"},
        {"[0,65535]", "[0,\"1\"]", "keyboard.pressed[1]: not a whole number but a text"},
        {"[0,65535]", "[0,null]", "keyboard.pressed[1]: not a whole number but null"},
        {"[0,65535]", "{}", "keyboard.pressed: not a list but an object"},
        {R"("layout":"ansi")", R"("layout":"jis")", "keyboard.layout: unknown case \"jis\""},
        {R"({"touchID":"works"})", R"({"touchID":"Works"})",
         "keyboard.manual.touchID: unknown case \"Works\""},
        {R"({"touchID":"works"})", "[]", "keyboard.manual: not an object but a list"},
        {R"("clicked":false)", R"("clicked":0)", "trackpad.clicked: not a boolean but a number"},
        {R"("peak":-12.5)", R"("peak":"loud")", "microphones[0].peak: not a number but a text"},
        {R"("framesSeen":true)", R"("frames":true)", "cameras[0].framesSeen: missing"},
        {R"(["display",)", R"(["lid",)", "overrides[0]: unknown case \"lid\""},
        {R"(["display",{"notIncluded":false,)", R"(["display",{)", "overrides[1].notIncluded: missing"},
        {R"("problem":"Scratch"}])", R"("problem":"Scratch"},"ports"])", "overrides: a key without a value"},
        {R"("source":"registry")", R"("source":7)", "battery.source: not a text but a number"},
        {R"({"ticked":["backup"]})", R"({"ticked":["sell"]})", "handover.ticked[0]: unknown case \"sell\""},
    };
    for (const auto& [what, instead, fault] : rows)
        EXPECT_EQ(faultOf(with(what, instead)), fault);
}

TEST(SessionCodec, aValueThatJSONHasNoWordForIsRefusedOnWriting) {
    for (double value : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        SessionState state = fullSession();
        state.microphones[0].peak = value;
        EXPECT_THROW(state.encode(), std::invalid_argument);
        state = fullSession();
        state.started.seconds = value;
        EXPECT_THROW(state.encode(), std::invalid_argument);
    }
}

TEST(SessionCodec, brokenTextIsRepairedOnWriting) {
    SessionState state = fullSession();
    state.overrides[TestID::display].problem = "a\xFF\xC3(\xED\xA0\x80";
    const auto read = SessionState::decode(state.encode());
    EXPECT_EQ(read.overrides.at(TestID::display).problem, "a\uFFFD\uFFFD(\uFFFD\uFFFD\uFFFD");
}

} // namespace
} // namespace tessivo

#include "kit/vocabulary/TestID.h"
#include "kit/vocabulary/TestStatus.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

TEST(TestID, keepsItsOrderRawValuesAndTitles) {
    std::string table;
    for (const TestID test : allCases<TestID>()) {
        table += std::string(rawValue(test)) + ": " + title(test) + "\n";
        EXPECT_EQ(fromRawValue<TestID>(rawValue(test)), test);
        EXPECT_STRNE(symbol(test), "");
    }
    EXPECT_EQ(table, "identity: Model and serial number\nenrollment: Device management (MDM)\n"
                     "activationLock: Activation Lock\nkeyboard: Keyboard\ntrackpad: Trackpad\n"
                     "display: Display\nspeakers: Speakers\nheadphones: Headphone jack\n"
                     "microphones: Microphones\ncameras: Cameras\nports: USB ports\n"
                     "ethernet: Ethernet port\nstorage: Storage\nbattery: Battery\n");
    for (const char* raw : {"Identity", ""})
        EXPECT_EQ(fromRawValue<TestID>(raw), std::nullopt);
}

TEST(TestStatus, theWordDiffersFromTheRawValue) {
    const std::tuple<TestStatus, const char*, const char*, Tint, bool> rows[] = {
        {TestStatus::notRun, "notRun", "Not run", Tint::secondary, false},
        {TestStatus::unfinished, "unfinished", "Not finished", Tint::blue, false},
        {TestStatus::works, "works", "Works", Tint::green, true},
        {TestStatus::problem, "problem", "Problem", Tint::red, true},
        {TestStatus::checkByHand, "checkByHand", "Check by hand", Tint::orange, false},
        {TestStatus::notIncluded, "notIncluded", "Not included", Tint::secondary, true}};
    for (const auto& [status, raw, word, colour, done] : rows) {
        EXPECT_EQ(rawValue(status), raw);
        EXPECT_STREQ(label(status), word);
        EXPECT_EQ(tint(status), colour);
        EXPECT_EQ(isDone(status), done);
    }
}

} // namespace
} // namespace tessivo

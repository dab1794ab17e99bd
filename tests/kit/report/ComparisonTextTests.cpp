#include "kit/report/ComparisonText.h"
#include "kit/support/Text.h"
#include "tests/TemporaryFolder.h"
#include "tests/kit/report/ComparisonPairs.h"

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tessivo {
namespace {

using namespace comparisontest;
using testing::HasSubstr;
using Verdict = ReportComparison::Verdict;

/// A pair as it comes about: what the seller's session and the buyer's differ in.
struct Pair {
    const char* name;
    std::function<void(SessionState& before, SessionState& after)> edit;
};

const Pair pairs[] = {
    {"all-run-again", [](SessionState&, SessionState&) {}},
    {"swapped-drive",
     [](SessionState&, SessionState& after) {
         after.machine.storageBytes = 245'107'195'904;
         after.listedStorageGB.reset();
     }},
    {"another-mac",
     [](SessionState&, SessionState& after) {
         after.machine.serial = "C02XK1Z9PW";
         after.machine.modelID = "Mac14,15";
         after.machine.memoryBytes = 8'589'934'592;
         setBattery(after, 81, 611);
     }},
    {"key-died",
     [](SessionState&, SessionState& after) {
         after.keyboard.pressed.erase(3); // F
         after.overrides.erase(TestID::display);
     }},
    {"key-died-and-noted",
     [](SessionState&, SessionState& after) {
         after.keyboard.pressed.erase(3);
         after.overrides[TestID::keyboard].problem = "The F key gives nothing.";
     }},
    {"battery-three-lower",
     [](SessionState& before, SessionState& after) {
         setBattery(before, 88, 1'001);
         setBattery(after, 85, 1'034);
     }},
    {"battery-four-lower",
     [](SessionState& before, SessionState& after) {
         setBattery(before, 88, 999);
         setBattery(after, 84, 143);
     }},
    {"battery-80-to-79",
     [](SessionState& before, SessionState& after) {
         setBattery(before, 80, 700);
         setBattery(after, 79, 702);
     }},
    {"second-dead-port",
     [](SessionState& before, SessionState& after) {
         before.ports.answer(2, ManualAnswer::problem);
         after.ports.answer(2, ManualAnswer::problem);
         after.ports.answer(1, ManualAnswer::problem);
     }},
    {"tests-not-repeated",
     [](SessionState&, SessionState& after) {
         SessionState fresh(after.machine, after.started);
         fresh.battery = after.battery;
         fresh.enrollment = after.enrollment;
         fresh.enrollmentChecked = true;
         fresh.keyboard = after.keyboard;
         fresh.speakers = after.speakers;
         after = fresh;
     }},
    {"sellers-session-left",
     [](SessionState& before, SessionState& after) {
         after = before;
         after.battery->cycleCount = 144;
     }},
    {"linux-and-macos",
     [](SessionState& before, SessionState&) {
         before.machine.chip = "Apple M2 (t8112)";
         before.machine.osVersion = "Debian GNU/Linux 12 (bookworm)";
         before.machine.memoryBytes = 16'856'821'760;
         before.machine.storageBytes = 500'277'792'768;
     }},
    {"serials-empty",
     [](SessionState& before, SessionState& after) { before.machine.serial = after.machine.serial = ""; }},
};

TEST(ComparisonText, printsRealPairsWhole) {
    for (const Pair& pair : pairs) {
        SessionState before = Samples::session(), after = rerun();
        pair.edit(before, after);
        const auto comparison =
            ReportComparison::make(report(after, boughtOn), report(before, soldOn)); // either order
        EXPECT_EQ(ComparisonText::text(comparison, "America/Los_Angeles") + "\n",
                  bytesOf(TESSIVO_TEST_DATA "/comparisons/" + std::string(pair.name) + ".txt"))
            << pair.name;
        EXPECT_EQ(comparison.isPass(), comparison.verdict == Verdict::allWork) << pair.name;
    }
}

TEST(ComparisonText, germanAndEnglishFiguresAreTheSame) {
    SessionState before = Samples::session(), after = rerun();
    setBattery(before, 83, 1'234);
    setBattery(after, 83, 1'234);
    ConditionReport german = report(before, soldOn);
    TestResult& battery = german.results.back();
    ASSERT_EQ(battery.summary, "Holds 83% of its charge when new, 1,234 charge cycles");
    battery.summary = Text::replaced(battery.summary, ",234", ".234");
    const auto comparison = ReportComparison::make(german, report(after, boughtOn));
    EXPECT_TRUE(comparison.items.empty());
    EXPECT_EQ(comparison.verdictText, "Same Mac, and all 12 tests that worked then work now.");
}

TEST(ComparisonText, jsonHoldsTheWholeValue) {
    SessionState left = Samples::session();
    setBattery(left, 60, 300);
    const std::string json = ComparisonText::json(
        ReportComparison::make(report(Samples::session(), soldOn), report(left, boughtOn)));
    for (const char* piece :
         {"\"sameMac\": \"yes\"", "\"testedSince\": true", "\"verdict\": \"worse\"",
          "\"verdictText\": \"1 thing is worse than the report says.\"", "\"change\": \"worse\"",
          "\"statusAfter\": \"problem\"", "\"test\": \"battery\"", "\"created\": \"2026-03-06T00:07:09Z\""})
        EXPECT_THAT(json, HasSubstr(piece));
}

} // namespace
} // namespace tessivo

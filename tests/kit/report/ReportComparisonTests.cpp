#include "kit/report/ComparisonText.h"
#include "kit/report/TestComparison.h"
#include "tests/kit/report/ComparisonPairs.h"

#include <chrono>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tessivo {
namespace {

using namespace comparisontest;
using Status = TestStatus;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

ConditionReport withResults(std::vector<TestResult> results, Date at) {
    ConditionReport report;
    report.created = at;
    report.machine = Samples::machine();
    report.results = std::move(results);
    return report;
}
ReportComparison compared(std::vector<TestResult> before, std::vector<TestResult> after) {
    return ReportComparison::make(withResults(std::move(before), soldOn),
                                  withResults(std::move(after), boughtOn), boughtOn);
}

TEST(ReportComparison, aReportAgainstItselfGivesNoItemAndConfirmsNothing) {
    const ConditionReport once = report(Samples::session(), soldOn);
    ConditionReport later = once;
    later.created = boughtOn;
    for (const ConditionReport& other : {once, later}) {
        const auto comparison = ReportComparison::make(once, other);
        EXPECT_THAT(comparison.items, IsEmpty());
        EXPECT_EQ(comparison.sameMac, SameMac::yes);
        EXPECT_EQ(comparison.verdictText, "Nothing here was tested after that report. Choose Start Over, "
                                          "then run the quick tests.");
        EXPECT_THAT(comparison.confirmed, IsEmpty());
        EXPECT_EQ(comparison.notConfirmed.size(), 13u);
        EXPECT_FALSE(comparison.isPass());
    }
}

TEST(ReportComparison, everyPairOfStatus) {
    // Rows: before; columns: after, in the order of the statuses and then a test that is missing.
    // w worse, l left out, n not confirmed, s the problem stands, b better, c changed, = unchanged.
    const std::pair<std::optional<Status>, std::string_view> rows[] = {
        {Status::notRun, "=cbwccc"},  {Status::unfinished, "c=bwccc"},  {Status::works, "nn=wnnn"},
        {Status::problem, "ssb=sll"}, {Status::checkByHand, "ccbw=cc"}, {Status::notIncluded, "cccwc=c"},
        {std::nullopt, "cccwcc="},
    };
    const auto letter = [](const TestComparison::Verdict& verdict) {
        switch (verdict.change) {
        case Change::worse:
            return verdict.remark == "left out" ? 'l' : 'w';
        case Change::notConfirmed:
            return verdict.remark == "not repeated: the problem stands" ? 's' : 'n';
        case Change::changed:
            return 'c';
        case Change::better:
            return 'b';
        case Change::unchanged:
            return '=';
        }
        return '?';
    };
    for (const auto& [before, expected] : rows) {
        std::string found, otherWords;
        for (const auto& [after, unused] : rows) {
            found += letter(TestComparison::verdict(before, after, true));
            if (before == after) otherWords = letter(TestComparison::verdict(before, after, false));
        }
        EXPECT_EQ(found, expected) << (before ? label(*before) : "missing");
        EXPECT_EQ(otherWords, !before ? "=" : before == Status::problem ? "w" : "c") << expected;
    }
    EXPECT_EQ(TestComparison::verdict(Status::problem, Status::problem, false).remark, "another problem");
}

TEST(ReportComparison, tellsTheSameMacByItsSerialNumberAndModel) {
    using Text = std::optional<std::string>;
    const std::tuple<Text, const char*, Text, const char*, SameMac> rows[] = {
        {"S", "Mac14,2", "S", "Mac14,2", SameMac::yes},
        {"S", "Mac14,2", " S ", "Mac14,2", SameMac::yes},
        {"S", "Mac14,2", "S", "Mac15,12", SameMac::contradicting},
        {"S", "Mac14,2", "T", "Mac14,2", SameMac::no},
        {"S", "Mac14,2", {}, "Mac14,2", SameMac::cantTell},
        {"", "Mac14,2", "", "Mac14,2", SameMac::cantTell},
        {{}, "Mac14,2", "S", "Mac15,12", SameMac::no},
        {{}, "Mac14,2", {}, "Unknown", SameMac::cantTell},
        {"S", "Mac14,2", "S", "Unknown", SameMac::cantTell},
        {"S", "Unknown", "S", "Unknown", SameMac::cantTell},
    };
    for (const auto& [serialBefore, modelBefore, serialAfter, modelAfter, expected] : rows) {
        SessionState before = Samples::session(), after = rerun();
        before.machine.serial = serialBefore;
        before.machine.modelID = modelBefore;
        after.machine.serial = serialAfter;
        after.machine.modelID = modelAfter;
        const auto comparison = ReportComparison::make(report(before, soldOn), report(after, boughtOn));
        EXPECT_EQ(comparison.sameMac, expected) << modelBefore << " " << modelAfter;
        EXPECT_EQ(comparison.isPass(), expected == SameMac::yes);
        EXPECT_EQ(comparison.confirmed.empty(),
                  expected == SameMac::no || expected == SameMac::contradicting);
    }
    SessionState before = Samples::session(), after = rerun();
    before.machine.modelID = after.machine.modelID = MachineInfo::unknownModel;
    EXPECT_EQ(ReportComparison::make(report(before, soldOn), report(after, boughtOn)).verdictText,
              "Can't tell whether it is the same Mac: no model ID was read.");
}

TEST(ReportComparison, drivesAndMemoryCountByWhatTheyAreSoldAs) {
    using Bytes = std::optional<std::int64_t>;
    constexpr std::int64_t giga = 1'000'000'000, memory = std::int64_t{1} << 30;
    const std::tuple<Bytes, Bytes, Change, const char*> drives[] = {
        {494 * giga, 500 * giga, Change::unchanged, ""},
        {494 * giga, 245 * giga, Change::worse, "a smaller drive"},
        {494 * giga, 994 * giga, Change::changed, "another drive?"},
        {300 * giga, 310 * giga, Change::changed, "another drive?"}, // neither is a size sold
        {300 * giga, 299 * giga, Change::worse, "a smaller drive"},
        {300'000'000'000, 300'100'000'000, Change::unchanged, ""},
        {494 * giga, {}, Change::notConfirmed, "its size wasn't read"},
        {{}, 494 * giga, Change::changed, ""},
        {{}, 0, Change::unchanged, ""},
    };
    for (const auto& [was, is, change, remark] : drives) {
        MachineInfo before = Samples::machine(), after = before;
        before.storageBytes = was;
        after.storageBytes = is;
        ComparedItem item;
        MachineComparison::addDrive(item, before, after);
        EXPECT_EQ(item.change, change) << was.value_or(-1) << " " << is.value_or(-1);
        EXPECT_EQ(item.remark.value_or(""), remark) << was.value_or(-1) << " " << is.value_or(-1);
    }
    const std::tuple<std::int64_t, std::int64_t, Change> sizes[] = {
        {16 * memory, 16 * memory - memory / 3, Change::unchanged},
        {16 * memory, 8 * memory, Change::worse},
        {8 * memory, 16 * memory, Change::changed},
        {8 * memory, 0, Change::changed},
    };
    for (const auto& [was, is, change] : sizes) {
        MachineInfo before = Samples::machine(), after = before;
        before.memoryBytes = std::uint64_t(was);
        after.memoryBytes = std::uint64_t(is);
        EXPECT_EQ(MachineComparison::items(before, after).back().change, change) << was << " " << is;
    }
}

TEST(ReportComparison, batteriesWithinOneStatus) {
    const auto holds = [](const char* percent, const char* rest) {
        return std::string("Holds ") + percent + "% of its charge when new" + rest;
    };
    const std::tuple<Status, std::string, std::string, Change, const char*> rows[] = {
        {Status::works, holds("88", ", 9 charge cycles"), holds("88", ", 9 charge cycles"), Change::unchanged,
         ""},
        {Status::works, holds("88", ", 9 charge cycles"), holds("85", ", 1,009 charge cycles"),
         Change::changed, "3 points lower"},
        {Status::works, holds("88", ", 9 charge cycles"), holds("84", ", 9 charge cycles"), Change::worse,
         "4 points lower"},
        {Status::works, holds("88", ", 1.009 charge cycles"), holds("87", ", 9 charge cycles"), Change::worse,
         "1 point lower, another battery?"},
        {Status::works, holds("88", ", 9 charge cycles"), holds("91", ", 9 charge cycles"), Change::changed,
         ""},
        {Status::works, holds("88", ", 9 charge cycles"), holds("88", ""), Change::changed, ""},
        {Status::works, holds("88", ", 1,23 charge cycles"), holds("88", ", 1,22 charge cycles"),
         Change::changed, ""},
        {Status::works, holds("88", ", 9 charge cycles"), holds("٨٨", ", ٩ charge cycles"), Change::unchanged,
         ""},
        {Status::problem, holds("70", ": under 80%"), holds("68", ": under 80%"), Change::changed,
         "2 points lower"},
        {Status::problem, holds("70", ": under 80%"), holds("60", ": under 80%"), Change::worse,
         "10 points lower"},
        {Status::problem, holds("70", ": under 80%"), "macOS says the battery needs attention: Service",
         Change::worse, "another problem"},
        {Status::checkByHand, "macOS condition: Normal", "macOS condition: Good", Change::changed, ""},
    };
    for (const auto& [status, before, after, change, remark] : rows) {
        const auto comparison =
            compared({{TestID::battery, status, before, {}, {}}}, {{TestID::battery, status, after, {}, {}}});
        const bool same = comparison.items.empty();
        EXPECT_EQ(same ? Change::unchanged : comparison.items.front().change, change) << before << after;
        EXPECT_EQ(same ? "" : comparison.items.front().remark.value_or(""), remark) << before << after;
    }
}

TEST(ReportComparison, aTestThatStandsTwiceCountsByItsWorstAndShowsBoth) {
    const TestResult good{TestID::ports, Status::works, "All 2 ports worked", {}, {}};
    const TestResult bad{TestID::ports, Status::problem, "Nothing showed up on Port 2", {}, "Loose"};
    const TestResult left{TestID::ports, Status::notIncluded, "Not part of this sale", {}, {}};
    const auto worse = compared({good}, {good, bad, good});
    ASSERT_EQ(worse.items.size(), 1u);
    EXPECT_EQ(worse.items[0].change, Change::worse);
    EXPECT_THAT(worse.items[0].after, ElementsAre("Works. All 2 ports worked",
                                                  "Problem. Nothing showed up on Port 2", "Note: Loose"));
    EXPECT_EQ(compared({bad}, {bad, bad, good}).count(Change::worse), 0);
    EXPECT_EQ(compared({good, bad}, {good}).count(Change::better), 1);
    EXPECT_THAT(compared({good}, {good, left}).notConfirmed, ElementsAre(TestID::ports));
}

TEST(ReportComparison, notesAreShownAndNeverCounted) {
    TestResult before{TestID::display, Status::problem, "Dead or stuck pixels seen", {}, "One dot"};
    TestResult after = before;
    after.note = "Ten dots";
    const auto comparison = compared({before}, {after});
    EXPECT_THAT(comparison.items, IsEmpty());
    EXPECT_EQ(comparison.foldedCount(), 0) << "what is shown isn't folded";
    EXPECT_EQ(compared({before}, {before}).foldedCount(), 1);
}

TEST(ReportComparison, theSessionTellsWhetherAnythingWasTestedSince) {
    const ConditionReport sold = report(Samples::session(), Date{soldOn.seconds + 0.5});
    const ConditionReport now = report(rerun(), boughtOn);
    const auto testedSince = [&](Date started) {
        return ReportComparison::make(sold, now, started).testedSince;
    };
    EXPECT_FALSE(testedSince(Samples::session().started));
    EXPECT_FALSE(testedSince(Date{soldOn.seconds + 0.9})) << "files hold whole seconds";
    EXPECT_TRUE(testedSince(Date{soldOn.seconds + 1}));
    ConditionReport ahead = sold; // made by a clock that runs ahead
    ahead.created = Date{boughtOn.seconds + 86'400};
    EXPECT_FALSE(ReportComparison::make(ahead, now, rerun().started).testedSince);

    // One test run again tells nothing of the others, unless the session is known.
    SessionState touched = Samples::session();
    touched.microphones.front().peak = -11.5;
    const ConditionReport later = report(touched, boughtOn);
    const auto files = ReportComparison::make(sold, later);
    EXPECT_EQ(files.verdictText, "Same Mac, and all 12 tests that worked then work now.");
    EXPECT_EQ(files.readAlike.size(), 7u);
    EXPECT_THAT(files.readAlike, Not(Contains(TestID::microphones)));
    EXPECT_THAT(files.readAlike, Not(Contains(TestID::display))) << "its problem isn't said to work";
    EXPECT_EQ(ComparisonText::caution(files),
              "Reports don't tell when a test was run: 7 tests that work in both read the same to the last "
              "detail, and may not have been run again.");
    EXPECT_EQ(ComparisonText::caution(ReportComparison::make(sold, later, boughtOn)), "");

    // A session left as it was, in which only the readings are fresh, is no new test.
    SessionState left = Samples::session();
    left.battery->cycleCount = 150;
    EXPECT_FALSE(ReportComparison::make(sold, report(left, boughtOn)).testedSince);
    setBattery(left, 60, 300);
    EXPECT_EQ(ReportComparison::make(sold, report(left, boughtOn)).verdictText,
              "1 thing is worse than the report says.");
}

TEST(ReportComparison, wordsForOneAndForNone) {
    const auto result = [](Status status) {
        return TestResult{TestID::keyboard, status, label(status), {}, {}};
    };
    const std::tuple<std::vector<TestResult>, std::vector<TestResult>, const char*, bool> rows[] = {
        {{result(Status::works)},
         {result(Status::works)},
         "Same Mac, and the 1 test that worked then works now.",
         true},
        {{result(Status::works)},
         {},
         "Nothing worse in the 0 tests run again. Not run again: Keyboard",
         false},
        {{result(Status::problem)}, {result(Status::works)}, "Nothing worse in the 1 test run again.", false},
        {{}, {}, "Nothing worse in the 0 tests run again.", false},
    };
    for (const auto& [before, after, words, passes] : rows) {
        const auto comparison = compared(before, after);
        EXPECT_EQ(comparison.verdictText, words);
        EXPECT_EQ(comparison.isPass(), passes) << words;
    }
    // A problem that wasn't looked at again is told, and no test that worked is missing.
    TestResult works = result(Status::works);
    works.test = TestID::speakers;
    const auto stands = compared({result(Status::problem), works}, {result(Status::notRun), works});
    EXPECT_EQ(stands.verdictText, "Nothing worse in the 1 test run again. Not run again: Keyboard");
    EXPECT_TRUE(stands.isPass());
}

TEST(ReportComparison, hostileReportsTakeTimeByTheirLengthAlone) {
    std::vector<TestResult> results;
    for (int i = 0; i < 100'000; ++i)
        results.push_back({TestID(i % 14), Status(i % 6), "\u202Eسطر " + std::to_string(i), {}, {}});
    results.front().details.assign(100'000, "Holds % charge cycle, ");
    results.push_back({TestID::battery, Status::works, std::string(4'000'000, ','), {}, std::string()});
    results.back().details.assign(100'000, "Maximum capacity");
    std::vector<TestResult> others = results;
    std::ranges::reverse(others);
    const auto start = std::chrono::steady_clock::now();
    const auto comparison = compared(results, others);
    EXPECT_THAT(comparison.items, IsEmpty()) << "the order in which a test stands twice tells nothing";
    EXPECT_GT(ComparisonText::text(comparison, "UTC").size(), 1'000'000u);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

} // namespace
} // namespace tessivo

#pragma once

#include "kit/report/ComparedItem.h"
#include "kit/report/ConditionReport.h"

/// What became of each test between two reports. Pure functions, any thread; their time grows with the length
/// of the reports and no faster.
namespace tessivo::TestComparison {

/// A battery may read so many points lower at the next reading.
inline constexpr std::int64_t batteryTolerance = 3;

struct Verdict {
    Change change = Change::unchanged;
    std::optional<std::string> remark;
};

/// By the status before and after, an absent one being a test that the report lacks; `sameWords` tells
/// whether the summaries are alike and counts within one status.
Verdict verdict(std::optional<TestStatus> before, std::optional<TestStatus> after, bool sameWords);

/// One item for each test that a report tells of, in the order of the tests. A test that stands twice counts
/// by its worst, and all of its words are given.
std::vector<ComparedItem> items(const ConditionReport& before, const ConditionReport& after);

/// The tests that a person runs, in their order: `alike` reads the same in both reports to the last detail,
/// but for the note; in `other` any other word is a sign of a new test.
struct HandTests {
    std::vector<TestID> alike;
    std::vector<TestID> other;
};
HandTests handTests(const ConditionReport& before, const ConditionReport& after);

} // namespace tessivo::TestComparison

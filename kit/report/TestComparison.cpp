#include "kit/report/TestComparison.h"

#include "kit/report/BatteryFigures.h"
#include "kit/support/Text.h"

#include <algorithm>
#include <unordered_set>

namespace tessivo::TestComparison {
namespace {

using Results = std::vector<const TestResult*>;

constexpr std::size_t testCount = allCases<TestID>().size();
constexpr const char* anotherProblem = "another problem";

/// Every result of each test.
std::array<Results, testCount> byTest(const ConditionReport& report) {
    std::array<Results, testCount> results;
    for (const TestResult& result : report.results)
        results[std::size_t(result.test)].push_back(&result);
    return results;
}

/// The worst first: what a test is taken for where it stands twice.
constexpr TestStatus ranks[] = {TestStatus::problem,    TestStatus::notIncluded, TestStatus::checkByHand,
                                TestStatus::unfinished, TestStatus::notRun,      TestStatus::works};
static_assert(std::size(ranks) == allCases<TestStatus>().size());

auto rank(TestStatus status) {
    return std::ranges::find(ranks, status) - std::begin(ranks);
}

/// The results that count: those of the worst status.
Results worst(const Results& results) {
    auto least = rank(TestStatus::works);
    for (const TestResult* result : results)
        least = std::min(least, rank(result->status));
    Results found;
    std::ranges::copy_if(results, std::back_inserter(found),
                         [&](const TestResult* result) { return rank(result->status) == least; });
    return found;
}

std::unordered_set<std::string_view> summaries(const Results& results) {
    std::unordered_set<std::string_view> found;
    for (const TestResult* result : results)
        found.insert(result->summary);
    return found;
}

/// Each line once, however often the report has it.
std::vector<std::string> lines(const Results& results) {
    std::vector<std::string> lines;
    std::unordered_set<std::string> seen;
    const auto add = [&](std::string line) {
        if (seen.insert(line).second) lines.push_back(std::move(line));
    };
    for (const TestResult* result : results) {
        const std::string word = label(result->status);
        add(result->summary == word ? word : word + ". " + result->summary);
        if (result->note) add("Note: " + *result->note);
    }
    return lines;
}

BatteryFigures lowestFigures(const Results& results) {
    BatteryFigures lowest = BatteryFigures::read(*results.front());
    for (const TestResult* result : results) {
        BatteryFigures figures = BatteryFigures::read(*result);
        if (figures.percent && (!lowest.percent || *figures.percent < *lowest.percent))
            lowest = std::move(figures);
    }
    return lowest;
}

std::string pointsLower(std::int64_t points) {
    return std::to_string(points) + (points == 1 ? " point lower" : " points lower");
}

/// Within one status. The numbers decide where both can be read, the words where they differ elsewhere.
Verdict batteryVerdict(const Results& before, const Results& after, bool sameWords) {
    const BatteryFigures was = lowestFigures(before);
    const BatteryFigures is = lowestFigures(after);
    const std::int64_t lost = was.percent && is.percent ? *was.percent - *is.percent : 0;
    const bool fewerCycles = was.cycles && is.cycles && *is.cycles < *was.cycles;
    std::vector<std::string> remarks;
    if (lost > 0) remarks.push_back(pointsLower(lost));
    if (fewerCycles) remarks.emplace_back("another battery?");
    Verdict verdict;
    if (!remarks.empty()) verdict.remark = Text::joined(remarks, ", ");
    if (lost > batteryTolerance || fewerCycles) {
        verdict.change = Change::worse;
    } else if (sameWords) {
        verdict = {};
    } else if (was.words == is.words && was.percent && is.percent) {
        // The same but for the numbers, which may differ in the way they are written alone.
        const bool same = was.percent == is.percent && was.cycles == is.cycles;
        verdict.change = same ? Change::unchanged : Change::changed;
    } else if (before.front()->status == TestStatus::problem) {
        verdict = {Change::worse, anotherProblem};
    } else {
        verdict.change = Change::changed;
    }
    return verdict;
}

bool staysInSight(TestID test) {
    return test == TestID::enrollment || test == TestID::activationLock || test == TestID::storage ||
           test == TestID::battery;
}

ComparedItem item(TestID test, const Results& before, const Results& after) {
    const Results worstBefore = worst(before), worstAfter = worst(after);
    ComparedItem item;
    item.name = title(test);
    item.test = test;
    if (!worstBefore.empty()) item.statusBefore = worstBefore.front()->status;
    if (!worstAfter.empty()) item.statusAfter = worstAfter.front()->status;
    // The words of the identity are the name and the serial number, which have an answer of their own.
    const bool sameWords = (test == TestID::identity && item.statusBefore != TestStatus::problem) ||
                           summaries(worstBefore) == summaries(worstAfter);
    const bool hasFigures =
        test == TestID::battery && item.statusBefore && item.statusBefore == item.statusAfter;
    auto [change, remark] = hasFigures ? batteryVerdict(worstBefore, worstAfter, sameWords)
                                       : verdict(item.statusBefore, item.statusAfter, sameWords);
    item.change = change;
    item.remark = std::move(remark);
    item.before = lines(before);
    item.after = lines(after);
    const auto hasNote = [](const TestResult* result) { return result->note.has_value(); };
    const bool notesDiffer = item.before != item.after &&
                             (std::ranges::any_of(before, hasNote) || std::ranges::any_of(after, hasNote));
    item.folded = change == Change::unchanged && !staysInSight(test) && !notesDiffer;
    return item;
}

} // namespace

Verdict verdict(std::optional<TestStatus> before, std::optional<TestStatus> after, bool sameWords) {
    if (before == after) {
        if (!before || sameWords) return {};
        if (before == TestStatus::problem) return {Change::worse, anotherProblem};
        return {Change::changed, {}};
    }
    if (after == TestStatus::problem) return {Change::worse, {}};
    if (before == TestStatus::problem) {
        if (after == TestStatus::works) return {Change::better, {}};
        if (!after || after == TestStatus::notIncluded) return {Change::worse, "left out"};
        return {Change::notConfirmed, "not repeated: the problem stands"};
    }
    if (before == TestStatus::works) return {Change::notConfirmed, {}};
    const bool wasOpen =
        before == TestStatus::notRun || before == TestStatus::unfinished || before == TestStatus::checkByHand;
    if (after == TestStatus::works && wasOpen) return {Change::better, {}};
    return {Change::changed, {}};
}

std::vector<ComparedItem> items(const ConditionReport& before, const ConditionReport& after) {
    const auto was = byTest(before), is = byTest(after);
    std::vector<ComparedItem> items;
    for (const TestID test : allCases<TestID>()) {
        const Results& earlier = was[std::size_t(test)];
        const Results& later = is[std::size_t(test)];
        if (!earlier.empty() || !later.empty()) items.push_back(item(test, earlier, later));
    }
    return items;
}

HandTests handTests(const ConditionReport& before, const ConditionReport& after) {
    const auto was = byTest(before), is = byTest(after);
    const auto same = [](const TestResult* a, const TestResult* b) {
        return a->status == b->status && a->summary == b->summary && a->details == b->details;
    };
    HandTests found;
    for (const TestID test : allCases<TestID>()) {
        if (test == TestID::identity || test == TestID::enrollment || test == TestID::storage ||
            test == TestID::battery)
            continue; // read by the program whenever it is open
        const Results& earlier = was[std::size_t(test)];
        const Results& later = is[std::size_t(test)];
        if (earlier.empty() && later.empty()) continue;
        (std::ranges::equal(earlier, later, same) ? found.alike : found.other).push_back(test);
    }
    return found;
}

} // namespace tessivo::TestComparison

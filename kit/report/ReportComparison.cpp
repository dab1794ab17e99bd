#include "kit/report/ReportComparison.h"

#include "kit/report/TestComparison.h"
#include "kit/support/Text.h"

#include <algorithm>
#include <cmath>

namespace tessivo {
namespace {

using Verdict = ReportComparison::Verdict;

ReportComparison::Side side(const ConditionReport& report) {
    return {report.id, report.created, report.machine.displayName()};
}

bool hasVerdict(std::optional<TestStatus> status) {
    return status == TestStatus::works || status == TestStatus::problem;
}

/// A report file has whole seconds, cut off: a session of the same second may have begun before.
bool beganAfter(Date started, Date created) {
    return std::floor(started.seconds) > std::floor(created.seconds);
}

/// The tests of both reports with the drive's size in the one of storage.
std::vector<ComparedItem> tests(const ConditionReport& before, const ConditionReport& after) {
    std::vector<ComparedItem> items = TestComparison::items(before, after);
    auto storage = std::ranges::find(items, std::optional(TestID::storage), &ComparedItem::test);
    if (storage == items.end()) {
        ComparedItem drive;
        drive.name = title(TestID::storage);
        drive.test = TestID::storage;
        MachineComparison::addDrive(drive, before.machine, after.machine);
        const auto isBehind = [](const ComparedItem& item) { return *item.test > TestID::storage; };
        if (!drive.before.empty() || !drive.after.empty())
            items.insert(std::ranges::find_if(items, isBehind), std::move(drive));
    } else {
        MachineComparison::addDrive(*storage, before.machine, after.machine);
    }
    return items;
}

void sort(ReportComparison& comparison, std::vector<ComparedItem> facts, std::vector<ComparedItem> tests) {
    for (ComparedItem& fact : facts) {
        const bool counts = fact.name == "Memory" && fact.change != Change::unchanged;
        (counts ? comparison.items : comparison.identity).push_back(std::move(fact));
    }
    for (ComparedItem& test : tests) {
        if (test.change != Change::unchanged)
            comparison.items.push_back(std::move(test));
        else if (test.test != TestID::identity) // it stands in `identity`
            comparison.unchanged.push_back(std::move(test));
    }
    std::ranges::stable_sort(comparison.items, {}, &ComparedItem::change);
}

void confirm(ReportComparison& comparison, const std::vector<ComparedItem>& tests) {
    const bool sameTests = comparison.testedSince && comparison.sameMac != SameMac::no &&
                           comparison.sameMac != SameMac::contradicting;
    for (const ComparedItem& test : tests) {
        const bool works = test.statusBefore == TestStatus::works && test.statusAfter == TestStatus::works;
        if (test.change == Change::notConfirmed || (!sameTests && hasVerdict(test.statusBefore)))
            comparison.notConfirmed.push_back(*test.test);
        else if (works && test.change != Change::worse)
            comparison.confirmed.push_back(*test.test);
    }
}

std::string counted(std::int64_t number, const char* one, const char* many) {
    return std::to_string(number) + (number == 1 ? one : many);
}

Verdict verdict(const ReportComparison& comparison) {
    if (comparison.sameMac == SameMac::no) return Verdict::anotherMac;
    if (comparison.sameMac == SameMac::contradicting) return Verdict::contradicting;
    if (!comparison.testedSince) return Verdict::nothingTested;
    if (comparison.count(Change::worse) > 0) return Verdict::worse;
    if (comparison.sameMac == SameMac::cantTell) return Verdict::cantTell;
    // Of no test at all it can't be said that all of them work.
    const bool all = comparison.notConfirmed.empty() && !comparison.confirmed.empty();
    return all ? Verdict::allWork : Verdict::notAllRunAgain;
}

std::string notAllRunAgain(const ReportComparison& comparison, std::int64_t runAgain) {
    std::string text = "Nothing worse in the " + counted(runAgain, " test", " tests") + " run again.";
    std::vector<std::string> titles;
    for (const TestID test : comparison.notConfirmed)
        titles.emplace_back(title(test));
    if (!titles.empty()) text += " Not run again: " + Text::joined(titles, ", ");
    return text;
}

std::string words(const ReportComparison& comparison, std::int64_t runAgain, bool serialsRead) {
    const auto works = std::int64_t(comparison.confirmed.size());
    switch (comparison.verdict) {
    case Verdict::anotherMac:
        return "This is another Mac.";
    case Verdict::contradicting:
        return "The reports contradict each other.";
    case Verdict::nothingTested:
        return "Nothing here was tested after that report. Choose Start Over, then run the quick tests.";
    case Verdict::worse:
        return counted(comparison.count(Change::worse), " thing is", " things are") +
               " worse than the report says.";
    case Verdict::cantTell:
        return std::string("Can't tell whether it is the same Mac: no ") +
               (serialsRead ? "model ID" : "serial number") + " was read.";
    case Verdict::notAllRunAgain:
        return notAllRunAgain(comparison, runAgain);
    case Verdict::allWork:
        return works == 1
                   ? "Same Mac, and the 1 test that worked then works now."
                   : "Same Mac, and all " + std::to_string(works) + " tests that worked then work now.";
    }
    return {};
}

} // namespace

ReportComparison ReportComparison::make(const ConditionReport& one, const ConditionReport& other,
                                        std::optional<Date> sessionStarted) {
    const bool inOrder = one.created <= other.created;
    const ConditionReport& older = inOrder ? one : other;
    const ConditionReport& newer = inOrder ? other : one;

    ReportComparison comparison;
    comparison.before = side(older);
    comparison.after = side(newer);
    comparison.sameMac = MachineComparison::sameMac(older.machine, newer.machine);
    const std::vector<ComparedItem> allTests = tests(older, newer);
    sort(comparison, MachineComparison::items(older.machine, newer.machine), allTests);
    const TestComparison::HandTests byHand = TestComparison::handTests(older, newer);
    if (sessionStarted)
        comparison.testedSince = inOrder && beganAfter(*sessionStarted, older.created);
    else
        comparison.testedSince =
            older.created < newer.created && (comparison.count(Change::worse) > 0 || !byHand.other.empty());
    confirm(comparison, allTests);
    if (!sessionStarted)
        std::ranges::copy_if(byHand.alike, std::back_inserter(comparison.readAlike),
                             [&](TestID test) { return std::ranges::count(comparison.confirmed, test) > 0; });
    comparison.verdict = tessivo::verdict(comparison);
    const auto runAgain = std::ranges::count_if(allTests, [](const ComparedItem& test) {
        return hasVerdict(test.statusBefore) && hasVerdict(test.statusAfter);
    });
    const bool serialsRead =
        MachineComparison::serial(older.machine) && MachineComparison::serial(newer.machine);
    comparison.verdictText = words(comparison, runAgain, serialsRead);
    return comparison;
}

bool ReportComparison::isPass() const {
    if (sameMac != SameMac::yes || !testedSince || confirmed.empty() || count(Change::worse) > 0)
        return false;
    // A problem that wasn't looked at again is no test that worked.
    return std::ranges::none_of(items, [](const ComparedItem& item) {
        return item.change == Change::notConfirmed && item.statusBefore != TestStatus::problem;
    });
}

std::int64_t ReportComparison::count(Change change) const {
    return std::ranges::count(items, change, &ComparedItem::change);
}

std::int64_t ReportComparison::foldedCount() const {
    return std::ranges::count(unchanged, true, &ComparedItem::folded);
}

} // namespace tessivo

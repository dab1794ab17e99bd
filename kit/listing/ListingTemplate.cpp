#include "kit/listing/ListingTemplate.h"

#include "kit/listing/Lang.h"
#include "kit/listing/Numbers.h"
#include "kit/listing/Strings.h"
#include "kit/support/Text.h"

#include <algorithm>

namespace tessivo {

using Strings::tr;

namespace {

/// The lines of a listing and the facts that bind its rewordings, gathered in one pass so that the two
/// can't drift apart.
struct Gathered {
    std::vector<std::string> lines;
    std::vector<std::string> fixed;

    void heading(const std::string& text) {
        lines.emplace_back();
        lines.push_back(text);
    }
    void item(const std::string& text) { lines.push_back("- " + text); }
    void fact(const std::string& text) {
        if (!text.empty() && std::find(fixed.begin(), fixed.end(), text) == fixed.end())
            fixed.push_back(text);
    }
};

std::string titleOf(const TestResult& result) {
    return tr(title(result.test));
}

std::vector<const TestResult*> having(const std::vector<const TestResult*>& tested,
                                      std::initializer_list<TestStatus> statuses) {
    std::vector<const TestResult*> found;
    for (const TestResult* result : tested)
        if (std::find(statuses.begin(), statuses.end(), result->status) != statuses.end())
            found.push_back(result);
    return found;
}

std::int64_t addProblems(Gathered& listing, const std::vector<const TestResult*>& problems) {
    listing.heading(problems.empty() ? tr("Problems found: none in the tests that were run.")
                                     : tr("Problems found:"));
    for (const TestResult* result : problems) {
        const std::string& said = result->note ? *result->note : result->summary;
        listing.fact(said);
        listing.item(titleOf(*result) + ": " + said);
    }
    return std::int64_t(problems.size());
}

void addWorking(Gathered& listing, const std::vector<const TestResult*>& working) {
    if (working.empty()) return;
    listing.heading(tr("Tested and working:"));
    for (const TestResult* result : working)
        listing.item(titleOf(*result) + ": " + result->summary);
}

void addByHand(Gathered& listing, const std::vector<const TestResult*>& byHand) {
    if (byHand.empty()) return;
    listing.heading(tr("Not checked by the app (check these yourself):"));
    for (const TestResult* result : byHand) {
        listing.fact(titleOf(*result));
        listing.item(titleOf(*result) + ": " + result->summary);
    }
}

void addTitles(Gathered& listing, const std::string& heading, const std::vector<const TestResult*>& results) {
    if (results.empty()) return;
    listing.heading(heading);
    for (const TestResult* result : results) {
        listing.fact(titleOf(*result));
        listing.item(titleOf(*result));
    }
}

void addSpecs(Gathered& listing, const MachineInfo& machine, bool includeSerial) {
    listing.heading(tr("Specs:"));
    listing.item(tr("Model: %@", {machine.displayName()}));
    listing.item(tr("Model ID: %@", {machine.modelID}));
    if (machine.chip) listing.item(tr("Chip: %@", {*machine.chip}));
    listing.item(tr("Memory: %@", {machine.memoryText()}));
    if (const auto storage = machine.storageText()) listing.item(tr("Storage: %@", {*storage}));
    listing.item("macOS: " + machine.osVersion);
    if (includeSerial && machine.serial) {
        listing.fact(*machine.serial);
        listing.item(tr("Serial number: %@", {*machine.serial}));
    }
}

std::string headline(const MachineInfo& machine) {
    std::vector<std::string> parts;
    if (machine.chip) parts.push_back(*machine.chip);
    parts.push_back(tr("%@ memory", {machine.memoryText()}));
    if (const auto storage = machine.storageText()) parts.push_back(tr("%@ storage", {*storage}));
    return machine.displayName() + ": " + Text::joined(parts, ", ");
}

} // namespace

ListingWriteUp ListingTemplate::make(const ConditionReport& report, bool includeSerial) {
    const MachineInfo& machine = report.machine;
    const std::string date = Lang::dateText(report.created);
    std::vector<const TestResult*> tested;
    for (const TestResult& result : report.results)
        if (result.test != TestID::identity) tested.push_back(&result);

    ListingWriteUp writeUp;
    writeUp.headline = headline(machine);
    writeUp.language = Lang::current();

    Gathered listing;
    listing.lines = {writeUp.headline, ""};
    listing.fact(machine.displayName());
    listing.fact(machine.memoryText());
    listing.fact(machine.modelID);
    listing.fact(machine.osVersion);
    listing.fact(machine.chip.value_or(""));
    listing.fact(machine.storageText().value_or(""));
    listing.fact(date);

    listing.lines.push_back(
        tr("Tested on %@ with Tessivo. Everything below is copied from the condition report.", {date}));
    writeUp.facts.problems = addProblems(listing, having(tested, {TestStatus::problem}));
    addWorking(listing, having(tested, {TestStatus::works}));
    addByHand(listing, having(tested, {TestStatus::checkByHand}));
    addTitles(listing, tr("Not tested:"), having(tested, {TestStatus::notRun, TestStatus::unfinished}));
    addTitles(listing, tr("Not part of this sale:"), having(tested, {TestStatus::notIncluded}));
    if (!report.notes.empty()) {
        listing.fact(report.notes);
        listing.heading(tr("Seller's notes:"));
        listing.lines.push_back(report.notes);
    }
    addSpecs(listing, machine, includeSerial);
    listing.heading(tr("At pickup you can run the same tests with Tessivo and compare."));

    writeUp.text = Text::joined(listing.lines, "\n");
    writeUp.facts.fixed = std::move(listing.fixed);
    writeUp.facts.numbers = Numbers::find(writeUp.text);
    return writeUp;
}

} // namespace tessivo

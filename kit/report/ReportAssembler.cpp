#include "kit/report/ReportAssembler.h"

#include "kit/hardware/ByteText.h"
#include "kit/rules/Rules.h"
#include "kit/support/Text.h"

#include <algorithm>

namespace tessivo {
namespace {

/// The steps that repeat a test, by their titles.
constexpr std::pair<TestID, const char*> quickTests[] = {{TestID::enrollment, "Device management"},
                                                         {TestID::storage, "Storage"},
                                                         {TestID::display, "Display colors"},
                                                         {TestID::speakers, "Speakers"},
                                                         {TestID::keyboard, "Keyboard"},
                                                         {TestID::cameras, "Camera"}};

} // namespace

ConditionReport ReportAssembler::make(const SessionState& state, Date at, const std::string& appVersion,
                                      const std::string& notes) {
    ConditionReport report;
    report.id = Uuid::random();
    report.created = at;
    report.machine = state.machine;
    report.results = Rules::results(state);
    report.pickup = pickupSteps(state.machine, report.results);
    report.appVersion = appVersion;
    report.notes = Text::trimmed(notes);
    report.handover = Handover::lines(state.handover, state.machine);
    return report;
}

std::vector<PickupStep> ReportAssembler::pickupSteps(const MachineInfo& machine,
                                                     const std::vector<TestResult>& results) {
    std::vector<PickupStep> steps;
    steps.push_back({"Open Tessivo on this Mac and choose Check at Pickup",
                     "It shows this Mac's serial number and opens each quick test", 10});
    steps.push_back({"Model and serial number",
                     "Model ID " + machine.modelID + ", serial " +
                         machine.serial.value_or("as in About This Mac") +
                         "; About This Mac shows the same serial",
                     15});

    const auto add = [&](TestID test, std::string expect, std::int64_t seconds) {
        const auto quick = std::ranges::find(quickTests, test, &std::pair<TestID, const char*>::first);
        steps.push_back({quick->second, std::move(expect), seconds});
    };
    const auto has = [&](TestID test, TestStatus status) {
        const TestResult* result = resultOf(test, results);
        return result && result->status == status;
    };
    if (has(TestID::enrollment, TestStatus::works))
        add(TestID::enrollment, "Not enrolled", 5);
    else if (has(TestID::enrollment, TestStatus::problem))
        add(TestID::enrollment, "Enrolled (as this report says)", 5);

    if (const auto size = machine.marketedStorageGB())
        add(TestID::storage, ByteText::sizeLabel(*size) + " drive", 5);

    // A fault keeps its step: a buyer should look at exactly that.
    if (!has(TestID::display, TestStatus::notIncluded))
        add(TestID::display, "No dots that stay lit or dark on any color", 30);
    if (!has(TestID::speakers, TestStatus::notIncluded))
        add(TestID::speakers, "A clear tone from each side", 15);
    if (!has(TestID::keyboard, TestStatus::notIncluded))
        add(TestID::keyboard, "Run a finger along each row; every key lights up", 30);

    // Stricter on purpose: only a camera that was confirmed working makes a quick check.
    if (has(TestID::cameras, TestStatus::works)) add(TestID::cameras, "A clear picture", 10);
    return steps;
}

std::optional<TestID> ReportAssembler::testOf(const PickupStep& step) {
    for (const auto& [test, title] : quickTests)
        if (step.title == title) return test;
    return std::nullopt;
}

} // namespace tessivo

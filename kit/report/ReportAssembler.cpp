#include "kit/report/ReportAssembler.h"

#include "kit/hardware/ByteText.h"
#include "kit/rules/Rules.h"
#include "kit/support/Text.h"

#include <algorithm>

namespace tessivo {
namespace {

std::optional<TestStatus> statusOf(TestID test, const std::vector<TestResult>& results) {
    const auto found = std::ranges::find(results, test, &TestResult::test);
    if (found == results.end()) return std::nullopt;
    return found->status;
}

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

    const auto enrollment = statusOf(TestID::enrollment, results);
    if (enrollment == TestStatus::works)
        steps.push_back({"Device management", "Not enrolled", 5});
    else if (enrollment == TestStatus::problem)
        steps.push_back({"Device management", "Enrolled (as this report says)", 5});

    if (const auto size = machine.marketedStorageGB())
        steps.push_back({"Storage", ByteText::sizeLabel(*size) + " drive", 5});

    // A fault keeps its step: a buyer should look at exactly that.
    const auto isIncluded = [&](TestID test) { return statusOf(test, results) != TestStatus::notIncluded; };
    if (isIncluded(TestID::display))
        steps.push_back({"Display colors", "No dots that stay lit or dark on any color", 30});
    if (isIncluded(TestID::speakers)) steps.push_back({"Speakers", "A clear tone from each side", 15});
    if (isIncluded(TestID::keyboard))
        steps.push_back({"Keyboard", "Run a finger along each row; every key lights up", 30});

    // Stricter on purpose: only a camera that was confirmed working makes a quick check.
    if (statusOf(TestID::cameras, results) == TestStatus::works)
        steps.push_back({"Camera", "A clear picture", 10});
    return steps;
}

} // namespace tessivo

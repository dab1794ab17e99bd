#include "kit/rules/RuleTexts.h"
#include "kit/rules/Rules.h"
#include "kit/support/Text.h"

namespace tessivo::Rules {

const char* const batteryHint =
    "Open System Settings › Battery and click the i next to Battery Health for Maximum Capacity; System "
    "Information › Hardware › Power shows the cycle count.";

namespace {

constexpr std::int64_t lowestGoodPercent = 80;

TestResult noBattery(std::optional<MacKind> kind) {
    if (!kind)
        return {TestID::battery,
                TestStatus::checkByHand,
                "No battery found. Check whether this model has one.",
                {batteryHint}};
    if (*kind == MacKind::laptop)
        return {TestID::battery,
                TestStatus::checkByHand,
                "Couldn't read the battery here. Check by hand.",
                {batteryHint}};
    return {TestID::battery, TestStatus::notIncluded, "None built in (desktop Macs have no battery)"};
}

std::vector<std::string> details(const BatteryReading& reading, std::optional<std::int64_t> health) {
    std::vector<std::string> lines;
    if (health)
        lines.push_back("Maximum capacity: " + std::to_string(*health) + "% (" +
                        Text::grouped(*reading.fullChargeCapacity) + " mAh of " +
                        Text::grouped(*reading.designCapacity) + " mAh when new)");
    if (reading.cycleCount)
        lines.push_back("Charge cycles: " + Text::grouped(*reading.cycleCount) +
                        (reading.designCycleCount
                             ? " (designed for " + Text::grouped(*reading.designCycleCount) + ")"
                             : ""));
    if (reading.condition) lines.push_back("macOS condition: " + *reading.condition);
    if (reading.source == BatteryReading::Source::powerSources)
        lines.push_back("The cycle count and capacity couldn't be read here. " + std::string(batteryHint));
    else
        lines.push_back(
            "System Settings › Battery › Battery Health shows Apple's own figure; it can differ by a "
            "percent or two.");
    return lines;
}

} // namespace

TestResult battery(const std::optional<BatteryReading>& reading, std::optional<MacKind> kind) {
    if (!reading) return {TestID::battery, TestStatus::notRun, "Not read yet"};
    if (!reading->present) return noBattery(kind);

    const std::optional<std::int64_t> health = reading->healthPercent();
    std::vector<std::string> lines = details(*reading, health);
    std::string cycles;
    if (reading->cycleCount)
        cycles = ", " + Text::grouped(*reading->cycleCount) +
                 (*reading->cycleCount == 1 ? " charge cycle" : " charge cycles");

    if (reading->condition && reading->conditionWarns())
        return {TestID::battery, TestStatus::problem,
                "macOS says the battery needs attention: " + *reading->condition, std::move(lines)};
    if (!health && reading->condition)
        return {TestID::battery,
                reading->source == BatteryReading::Source::powerSources ? TestStatus::checkByHand
                                                                        : TestStatus::works,
                "macOS condition: " + *reading->condition + cycles, std::move(lines)};
    if (!health)
        return {TestID::battery, TestStatus::checkByHand,
                "Battery found, but its health couldn't be read. Check by hand.", std::move(lines)};

    const std::string holds = "Holds " + std::to_string(*health) + "% of its charge when new" + cycles;
    if (*health >= lowestGoodPercent) return {TestID::battery, TestStatus::works, holds, std::move(lines)};
    return {TestID::battery, TestStatus::problem, holds + ": under 80%, so expect shorter battery life",
            std::move(lines)};
}

} // namespace tessivo::Rules

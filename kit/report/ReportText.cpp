#include "kit/report/ReportText.h"

#include "kit/support/Text.h"

namespace tessivo {
namespace {

using Lines = std::vector<std::string>;

void addMachine(Lines& lines, const MachineInfo& machine) {
    lines.push_back("Model ID: " + machine.modelID);
    lines.push_back("Serial number: " + machine.serial.value_or("not read"));
    if (machine.chip) lines.push_back("Chip: " + *machine.chip);
    lines.push_back("Memory: " + machine.memoryText());
    if (const auto storage = machine.storageText()) lines.push_back("Storage: " + *storage);
    lines.push_back("macOS: " + machine.osVersion);
}

void addResults(Lines& lines, const ConditionReport& report) {
    lines.push_back("RESULTS (" + report.countsText() + ")");
    for (const TestResult& result : report.results) {
        lines.push_back(std::string(ReportText::mark(result.status)) + " " + title(result.test) + ": " +
                        label(result.status) + ". " + result.summary);
        if (result.note) lines.push_back("   Note: " + *result.note);
    }
}

void addHandover(Lines& lines, const std::vector<HandoverLine>& handover, const MachineInfo& machine) {
    lines.push_back(Text::uppercased(Handover::reportHeading));
    lines.push_back(Handover::reportNote);
    for (const HandoverLine& line : handover)
        lines.push_back(std::string(Handover::mark(line.ticked)) + " " + title(line.step) + ": " +
                        Handover::word(line.ticked));
    lines.push_back(Handover::closingLine(machine));
    lines.push_back(Handover::buyerNote());
}

void addPickup(Lines& lines, const ConditionReport& report) {
    // The word stays plural for one minute.
    lines.push_back("CHECK IT YOURSELF AT PICKUP (under " + std::to_string(report.pickupMinutes()) +
                    " minutes)");
    std::size_t number = 0;
    for (const PickupStep& step : report.pickup)
        lines.push_back(std::to_string(++number) + ". " + step.title + ": " + step.expect);
}

} // namespace

const char* const ReportText::disclaimer =
    "These are the results of tests run on this Mac on the date shown, by the person who ran them. Some "
    "answers were given by hand. Anyone can rerun the tests to compare.";

std::string ReportText::text(const ConditionReport& report, const std::string& timeZone) {
    Lines lines;
    lines.push_back("CONDITION REPORT: " + report.machine.displayName());
    lines.push_back("Made with Tessivo " + report.appVersion + " on " + dateText(report.created, timeZone));
    lines.push_back("");
    addMachine(lines, report.machine);
    lines.push_back("");
    addResults(lines, report);
    if (!report.notes.empty()) {
        lines.push_back("");
        lines.push_back("NOTES");
        lines.push_back(report.notes);
    }
    if (report.handover) {
        lines.push_back("");
        addHandover(lines, *report.handover, report.machine);
    }
    lines.push_back("");
    addPickup(lines, report);
    lines.push_back("");
    lines.push_back(disclaimer);
    return Text::joined(lines, "\n");
}

std::string ReportText::dateText(Date date, const std::string& timeZone) {
    return date.formatted("MMMM d, yyyy 'at' h:mm a zzz", "en_US_POSIX", timeZone);
}

const char* ReportText::mark(TestStatus status) {
    static constexpr const char* marks[] = {"[  ]", "[  ]", "[OK]", "[!!]", "[??]", "[--]"};
    static_assert(std::size(marks) == allCases<TestStatus>().size());
    return marks[std::size_t(status)];
}

} // namespace tessivo

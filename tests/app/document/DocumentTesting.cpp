#include "tests/app/document/DocumentTesting.h"

#include "app/readers/Readers.h"
#include "kit/Samples.h"
#include "kit/report/ReportAssembler.h"
#include "kit/report/ReportText.h"
#include "platform/simulated/ManualScheduler.h"
#include "platform/simulated/SimulatedPlatform.h"
#include "tests/TemporaryFolder.h"

#include <QProcess>

namespace tessivo::documenttest {

namespace {

constexpr Date made{794'448'429}; // March 5, 2026, 4:07 PM PST

ConditionReport reportFrom(const SessionState& session) {
    return ReportAssembler::make(session, made, "1.0", Samples::notes());
}

const char* glyph(TestStatus status) {
    switch (status) {
    case TestStatus::works:
        return "✓";
    case TestStatus::problem:
        return "✕";
    case TestStatus::checkByHand:
        return "?";
    default:
        return "–";
    }
}

} // namespace

ConditionReport sampleReport() {
    return reportFrom(Samples::session());
}

ConditionReport reportOf(const std::string& machineFile) {
    ManualScheduler clock(made);
    SimulatedPlatform mac(loadMachineFile(std::filesystem::path(TESSIVO_MACHINES) / machineFile), clock);
    return reportFrom(Samples::session(readMachineInfo(mac.machineFacts(), mac.registry())));
}

std::vector<std::string> machineFiles() {
    return namesIn(TESSIVO_MACHINES);
}

QString poppler(const std::string& tool, const QStringList& options, const std::string& pdf) {
    const TemporaryFolder folder;
    const auto file = folder.write("report.pdf", pdf);
    QProcess process;
    const QString path = QString::fromStdString(file.string());
    const bool toText = tool == "pdftotext";
    process.start(QString::fromStdString(tool),
                  options + (toText ? QStringList{path, QStringLiteral("-")} : QStringList{path}));
    if (!process.waitForFinished() || process.exitCode() != 0)
        throw std::runtime_error(tool + ": " + process.readAllStandardError().toStdString());
    return QString::fromUtf8(process.readAllStandardOutput());
}

QString singleSpaced(const QString& text) {
    return text.simplified();
}

QString readText(const std::string& pdf) {
    return singleSpaced(poppler("pdftotext", {QStringLiteral("-layout")}, pdf));
}

QStringList linesOf(const ConditionReport& report, const std::string& timeZone) {
    const MachineInfo& machine = report.machine;
    std::vector<std::string> lines = {
        "CONDITION REPORT",
        machine.displayName(),
        "Tested " + ReportText::dateText(report.created, timeZone) + " with Tessivo " + report.appVersion,
        "Serial number " + machine.serial.value_or("Not read"),
        "Model ID " + machine.modelID,
        "Chip " + machine.chip.value_or("—"),
        "Memory " + machine.memoryText(),
        "Storage " + machine.storageText().value_or("—"),
        "macOS " + machine.osVersion,
        "Results: " + report.countsText(),
    };
    for (const TestResult& result : report.results) {
        lines.push_back(std::string(glyph(result.status)) + " " + title(result.test) + " " +
                        label(result.status));
        lines.push_back(result.summary);
        for (const std::string& detail : result.details)
            if (!detail.empty()) lines.push_back(detail);
        if (result.note) lines.push_back("Note: " + *result.note);
    }
    if (!report.notes.empty()) {
        lines.push_back("Seller's notes");
        lines.push_back(report.notes);
    }
    if (report.handover) {
        lines.push_back("Before handover (ticked by the seller)");
        lines.push_back("Ticked by the seller on this Mac. Tessivo can't see iCloud, Find My, Music or "
                        "Bluetooth, so it doesn't check these.");
        for (const HandoverLine& line : *report.handover)
            lines.push_back(std::string(line.ticked ? "☑ " : "☐ ") + title(line.step) +
                            (line.ticked ? " ticked by seller" : " not ticked"));
        lines.push_back(Handover::closingLine(machine));
        lines.push_back("Buyer: before the erase, ask the seller to show Activation Lock Status: Disabled in "
                        "System Information (Hardware), then to erase the Mac in front of you. Setup should "
                        "not ask for the seller's Apple Account.");
    }
    const auto minutes = report.pickupMinutes();
    lines.push_back("Check it yourself at pickup (under " + std::to_string(minutes) +
                    (minutes == 1 ? " minute)" : " minutes)"));
    lines.push_back(
        "A PDF can be edited, so don't take this report's word for it. On this Mac, compare these "
        "with the report:");
    for (std::size_t i = 0; i < report.pickup.size(); ++i)
        lines.push_back(std::to_string(i + 1) + ". " + report.pickup[i].title + ": " +
                        report.pickup[i].expect);
    lines.push_back("These are the results of tests run on this Mac on the date shown, by the person who ran "
                    "them. Some answers were given by hand. Anyone can rerun the tests to compare.");
    QStringList shown;
    for (const std::string& line : lines)
        shown.append(singleSpaced(QString::fromStdString(line)));
    return shown;
}

QString firstMissing(const QString& text, const QStringList& lines) {
    qsizetype at = 0;
    for (const QString& line : lines) {
        const qsizetype found = text.indexOf(line, at);
        if (found < 0)
            return line + QStringLiteral(" | behind: ") +
                   text.sliced(at, std::min<qsizetype>(300, text.size() - at));
        at = found + line.size();
    }
    return {};
}

} // namespace tessivo::documenttest

#include "app/document/ReportDocument.h"

#include "app/document/ReportFonts.h"
#include "app/document/ReportWriter.h"
#include "kit/report/Handover.h"
#include "kit/report/ReportText.h"

namespace tessivo::ReportDocument {

namespace {

using Face = ReportWriter::Face;

const QColor black(Qt::black);
const QColor grey = QColor::fromRgbF(0.38f, 0.38f, 0.38f);
const QColor kickerGreen = QColor::fromRgbF(0.0f, 0.45f, 0.33f);
const QColor noteRed = QColor::fromRgbF(0.8f, 0.16f, 0.14f);

const std::vector<double> specTabs{110};
const std::vector<double> rowTabs{18, 330};
const std::vector<double> stepTabs{18};

struct StatusLook {
    char32_t glyph;
    QColor color;
};

StatusLook look(TestStatus status) {
    switch (status) {
    case TestStatus::works:
        return {U'✓', QColor::fromRgbF(0.1f, 0.55f, 0.3f)};
    case TestStatus::problem:
        return {U'✕', noteRed};
    case TestStatus::checkByHand:
        return {U'?', QColor::fromRgbF(0.78f, 0.45f, 0.0f)};
    case TestStatus::notRun:
    case TestStatus::unfinished:
    case TestStatus::notIncluded:
        break;
    }
    return {U'–', QColor::fromRgbF(0.45f, 0.45f, 0.45f)};
}

/// Whether a list is to end here, on an ellipsis, for all the paragraphs there are.
bool endsEarly(ReportWriter& writer) {
    if (!writer.isFull()) return false;
    writer.paragraph({});
    writer.run("…", {});
    return true;
}

void writeHead(ReportWriter& writer, const ConditionReport& report, const std::string& timeZone) {
    writer.paragraph({.after = 2});
    writer.run("CONDITION REPORT", {.size = 9, .weight = QFont::Bold, .color = kickerGreen});
    writer.paragraph({.after = 4});
    writer.run(report.machine.displayName(), {.size = 20, .weight = QFont::Bold});
    writer.paragraph({.after = 12});
    writer.run("Tested " + ReportText::dateText(report.created, timeZone) + " with Tessivo " +
                   report.appVersion,
               {.color = grey});
}

void writeSpecs(ReportWriter& writer, const MachineInfo& machine) {
    struct Row {
        const char* label;
        std::string value;
    };
    const Row rows[] = {
        {"Serial number", machine.serial.value_or("Not read")},
        {"Model ID", machine.modelID},
        {"Chip", machine.chip.value_or("—")},
        {"Memory", machine.memoryText()},
        {"Storage", machine.storageText().value_or("—")},
        {"macOS", machine.osVersion},
    };
    for (const Row& row : rows) {
        const bool serial = &row == &rows[0];
        const bool last = &row == &rows[std::size(rows) - 1];
        writer.paragraph({.after = last ? 14.0 : 2.0, .tabs = specTabs, .hanging = 110});
        writer.run(row.label, {.color = grey});
        writer.run("\t", {});
        if (serial)
            writer.run(row.value, {.size = 11, .weight = QFont::DemiBold, .face = Face::monospaced});
        else
            writer.run(row.value, {});
    }
}

void writeResult(ReportWriter& writer, const TestResult& result) {
    const StatusLook status = look(result.status);
    writer.paragraph({.before = 6, .after = 1, .tabs = rowTabs});
    writer.symbol(status.glyph, {.size = 11, .weight = QFont::Bold, .color = status.color});
    writer.run("\t", {});
    writer.run(title(result.test), {.weight = QFont::DemiBold});
    writer.run("\t", {});
    writer.run(label(result.status), {.weight = QFont::DemiBold, .color = status.color});
    writer.paragraph({.after = 1, .indent = 18});
    writer.run(result.summary, {});
    for (const std::string& detail : result.details) {
        if (detail.empty()) continue;
        if (endsEarly(writer)) break;
        writer.paragraph({.after = 1, .indent = 18});
        writer.run(detail, {.size = 9, .color = grey});
    }
    if (result.note) {
        writer.paragraph({.after = 1, .indent = 18});
        writer.run("Note: " + *result.note, {.color = noteRed, .face = Face::italic});
    }
}

void writeSectionHeading(ReportWriter& writer, const std::string& text, double after) {
    writer.paragraph({.before = 16, .after = after});
    writer.run(text, {.size = 13, .weight = QFont::Bold});
}

void writeHandover(ReportWriter& writer, const ConditionReport& report) {
    writeSectionHeading(writer, Handover::reportHeading, 2);
    writer.paragraph({.after = 4});
    writer.run(Handover::reportNote, {.size = 9, .color = grey});
    for (const HandoverLine& line : *report.handover) {
        if (endsEarly(writer)) break;
        writer.paragraph({.before = 2, .after = 1, .tabs = rowTabs});
        writer.symbol(line.ticked ? U'☑' : U'☐', {.size = 11});
        writer.run("\t", {});
        writer.run(title(line.step), {});
        writer.run("\t", {});
        writer.run(Handover::word(line.ticked), {});
    }
    writer.paragraph({.before = 6, .after = 2});
    writer.run(Handover::closingLine(report.machine), {});
    writer.paragraph({.after = 2});
    writer.run(Handover::buyerNote(), {});
}

void writePickup(ReportWriter& writer, const ConditionReport& report) {
    // The empty line before the box, and the box's own paragraphs.
    writer.paragraph({.after = 6});
    writer.run(" ", {.size = 8});
    writer.beginBox(14);
    const std::int64_t minutes = report.pickupMinutes();
    writer.paragraph({.after = 4});
    writer.run("Check it yourself at pickup (under " + std::to_string(minutes) +
                   (minutes == 1 ? " minute)" : " minutes)"),
               {.size = 13, .weight = QFont::Bold});
    writer.paragraph({.after = 6});
    writer.run(
        "A PDF can be edited, so don't take this report's word for it. On this Mac, compare these with the "
        "report:",
        {.color = grey});
    int number = 0;
    for (const PickupStep& step : report.pickup) {
        if (endsEarly(writer)) break;
        writer.paragraph({.after = 3, .tabs = stepTabs, .hanging = 18});
        writer.run(std::to_string(++number) + ".\t" + step.title + ": ", {.weight = QFont::DemiBold});
        writer.run(step.expect, {.color = grey});
    }
    writer.endBox();
    writer.paragraph({});
    writer.run(ReportText::disclaimer, {.size = 8.5, .color = grey});
}

std::unique_ptr<QTextDocument> build(const ConditionReport& report, const std::string& timeZone,
                                     const ReportWriter::Paper& paper, const ReportWriter::Limits& limits) {
    ReportWriter writer(paper, limits);
    writeHead(writer, report, timeZone);
    writeSpecs(writer, report.machine);
    writer.paragraph({.after = 8});
    writer.run("Results: " + report.countsText(), {.size = 13, .weight = QFont::Bold});
    for (const TestResult& result : report.results) {
        if (endsEarly(writer)) break;
        writeResult(writer, result);
    }
    if (!report.notes.empty()) {
        writeSectionHeading(writer, "Seller's notes", 4);
        writer.paragraph({.after = 2});
        writer.run(report.notes, {});
    }
    if (report.handover) writeHandover(writer, report);
    writePickup(writer, report);
    return writer.take();
}

} // namespace

std::unique_ptr<QTextDocument> make(const ConditionReport& report, double width,
                                    const std::string& timeZone) {
    return build(report, timeZone, {.size = {width, 0}}, {longestText, longestDocument, mostParagraphs});
}

std::unique_ptr<QTextDocument> paged(const ConditionReport& report, QSizeF paper, double margin,
                                     const std::string& timeZone) {
    return build(report, timeZone, {paper, margin}, {});
}

} // namespace tessivo::ReportDocument

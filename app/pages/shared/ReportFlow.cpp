#include "app/pages/shared/ReportFlow.h"

#include "app/document/ReportPrinting.h"
#include "kit/report/ReportText.h"
#include "kit/support/Files.h"

#include <QFile>
#include <QPrinter>

namespace tessivo::ReportFlow {

namespace {

/// Whether the print job was made whole. A job that goes to a file is written as a saved PDF is: whole, or
/// not at all.
bool printed(const ConditionReport& report, QPrinter& printer) {
    const QString file = printer.outputFileName();
    if (!file.isEmpty())
        return ReportPrinting::savePDF(report, printer.pageLayout(), printer.pageRanges(),
                                       QFile::encodeName(file).toStdString());
    return ReportPrinting::print(report, printer) && printer.printerState() != QPrinter::Error;
}

QPageSize systemPaper(const PageContext& context) {
    return ReportPrinting::defaultPaper(context.model.platform().desktop().paper());
}

QString offeredName(const ConditionReport& report, const char* extension) {
    return QString::fromStdString(report.baseFileName()) + QLatin1String(extension);
}

QString checkPlace() {
    return QStringLiteral("Check that there is room on the disk and that the folder can be written, "
                          "then save it again.");
}

} // namespace

bool savePDF(const PageContext& context, const ConditionReport& report, QWidget* parent) {
    const auto file = context.dialogs.savePath(parent, Dialogs::FileKind::pdf, offeredName(report, ".pdf"));
    if (!file) return false;
    if (ReportPrinting::savePDF(report, systemPaper(context), *file)) return true;
    context.dialogs.inform(parent, QStringLiteral("The PDF couldn’t be saved"), checkPlace());
    return false;
}

void print(const PageContext& context, const ConditionReport& report, QWidget* parent) {
    QPrinter printer(QPrinter::HighResolution);
    // A printer of the system's own comes with the paper that it is set to.
    if (printer.printerName().isEmpty()) printer.setPageSize(systemPaper(context));
    printer.setDocName(QString::fromStdString(report.baseFileName()));
    printer.setCreator(QStringLiteral("Tessivo"));
    if (!context.dialogs.choosePrinter(parent, printer)) return;
    if (!printed(report, printer))
        context.dialogs.inform(parent, QStringLiteral("The report couldn’t be printed"),
                               QStringLiteral("Check the printer and its paper, then print it again."));
}

void copyText(const PageContext& context, const ConditionReport& report) {
    context.model.platform().desktop().setPasteboardText(ReportText::text(report, {}));
}

void saveFile(const PageContext& context, const ConditionReport& report, QWidget* parent) {
    const auto file = context.dialogs.savePath(parent, Dialogs::FileKind::json, offeredName(report, ".json"));
    if (!file) return;
    try {
        Files::writeAtomically(*file, HistoryStore::encode(report));
    } catch (const std::exception&) {
        context.dialogs.inform(parent, QStringLiteral("The report file couldn’t be saved"), checkPlace());
    }
}

} // namespace tessivo::ReportFlow

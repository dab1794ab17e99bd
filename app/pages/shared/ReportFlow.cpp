#include "app/pages/shared/ReportFlow.h"

#include "app/document/ReportPrinting.h"
#include "app/model/QtText.h"
#include "kit/report/ReportText.h"
#include "kit/support/Files.h"

#include <QFile>
#include <QPrinter>

namespace tessivo::ReportFlow {

namespace {

QPageSize systemPaper(const PageContext& context) {
    return ReportPrinting::defaultPaper(context.model.platform().desktop().paper());
}

QString offeredName(const ConditionReport& report, const char* extension) {
    return qt(report.baseFileName()) + QLatin1String(extension);
}

/// What happened and what to do: "There is no room on the disk. Make room or …, then save it again."
QString advice(SaveFault fault, const char* again) {
    const auto remedy = [fault] {
        switch (fault) {
        case SaveFault::noRoom:
            return "Make room or choose another disk";
        case SaveFault::notAllowed:
            return "Choose another folder";
        case SaveFault::noFont:
            return "Install a font";
        case SaveFault::other:
            break;
        }
        return "Check that there is room on the disk and that the folder can be written";
    };
    QString text = QString("%1. %2, then %3.").arg(cause(fault), remedy(), again);
    text[0] = text[0].toUpper();
    return text;
}

/// Makes the print job: why it failed, in words, or nothing. A job that goes to a file is written as a saved
/// PDF is: whole, or not at all.
std::optional<QString> printed(const ConditionReport& report, QPrinter& printer) {
    const QString file = printer.outputFileName();
    if (!file.isEmpty()) {
        const auto fault = ReportPrinting::savePDF(report, printer.pageLayout(), printer.pageRanges(),
                                                   QFile::encodeName(file).toStdString());
        if (fault == SaveFault::other)
            return "Check the paper, that there is room on the disk and that the folder can be written, then "
                   "print it again.";
        return fault ? std::optional(advice(*fault, "print it again")) : std::nullopt;
    }
    if (ReportPrinting::print(report, printer) && printer.printerState() != QPrinter::Error)
        return std::nullopt;
    return "Check the printer and its paper, then print it again.";
}

} // namespace

void savePDF(const PageContext& context, const ConditionReport& report, QWidget* parent, History history) {
    const auto file = context.dialogs.savePath(parent, Dialogs::FileKind::pdf, offeredName(report, ".pdf"));
    if (!file) return;
    if (const auto fault = ReportPrinting::savePDF(report, systemPaper(context), *file))
        context.dialogs.inform(parent, "The PDF couldn’t be saved", advice(*fault, "save it again"));
    else if (history == History::keep)
        context.model.saveToHistory(report);
}

void print(const PageContext& context, const ConditionReport& report, QWidget* parent, History history) {
    QPrinter printer(QPrinter::HighResolution);
    // A printer of the system's own comes with the paper that it is set to.
    if (printer.printerName().isEmpty()) printer.setPageSize(systemPaper(context));
    printer.setDocName(qt(report.baseFileName()));
    printer.setCreator("Tessivo");
    if (context.dialogs.choosePrinter(parent, printer))
        if (const auto fault = printed(report, printer))
            context.dialogs.inform(parent, "The report couldn’t be printed", *fault);
    if (history == History::keep) context.model.saveToHistory(report);
}

void copyText(const PageContext& context, const ConditionReport& report) {
    context.model.platform().desktop().setPasteboardText(ReportText::text(report, {}));
}

void saveFile(const PageContext& context, const ConditionReport& report, QWidget* parent) {
    const auto file = context.dialogs.savePath(parent, Dialogs::FileKind::json, offeredName(report, ".json"));
    if (!file) return;
    try {
        Files::writeAtomically(*file, HistoryStore::encode(report));
    } catch (const std::exception& error) {
        context.dialogs.inform(parent, "The report file couldn’t be saved",
                               advice(saveFault(error), "save it again"));
    }
}

} // namespace tessivo::ReportFlow

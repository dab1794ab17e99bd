#include "app/document/ReportPrinting.h"

#include "app/document/ReportDocument.h"
#include "app/document/ReportFonts.h"
#include "kit/support/Files.h"

#include <QBuffer>
#include <QFontInfo>
#include <QLocale>
#include <QPdfWriter>
#include <stdexcept>

namespace tessivo::ReportPrinting {

namespace {

/// Without any, letters come out as boxes.
bool hasFont() {
    return !QFontInfo(ReportFonts::text(12)).family().isEmpty();
}

} // namespace

bool print(const ConditionReport& report, QPagedPaintDevice& device, const std::string& timeZone) {
    // The document holds the margins itself, so that each page of it is one whole sheet.
    QPageLayout layout = device.pageLayout();
    layout.setMode(QPageLayout::FullPageMode);
    layout.setMargins({});
    if (!device.setPageLayout(layout)) return false;
    const QSizeF paper = layout.fullRect(QPageLayout::Point).size();
    if (paper.width() <= 2 * margin || paper.height() <= 2 * margin) return false;
    ReportDocument::paged(report, paper, margin, timeZone)->print(&device);
    return true;
}

std::string pdf(const ConditionReport& report, const QPageLayout& layout, const QPageRanges& pages,
                const std::string& timeZone) {
    if (!hasFont()) throw std::runtime_error(cause(SaveFault::noFont));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setPageLayout(layout);
        writer.setPageRanges(pages);
        writer.setTitle(QString::fromStdString(report.baseFileName()));
        writer.setCreator(QStringLiteral("Tessivo"));
        writer.setResolution(1200);
        if (!print(report, writer, timeZone))
            throw std::runtime_error("the report can't be drawn on this paper");
    }
    if (!bytes.startsWith("%PDF") || !bytes.trimmed().endsWith("%%EOF"))
        throw std::runtime_error("the PDF came out unfinished");
    return bytes.toStdString();
}

std::string pdf(const ConditionReport& report, const QPageSize& paper, const std::string& timeZone) {
    return pdf(report, QPageLayout(paper, QPageLayout::Portrait, {}), {}, timeZone);
}

std::optional<SaveFault> savePDF(const ConditionReport& report, const QPageLayout& layout,
                                 const QPageRanges& pages, const std::filesystem::path& file) {
    if (!hasFont()) return SaveFault::noFont;
    try {
        Files::writeAtomically(file, pdf(report, layout, pages));
        return std::nullopt;
    } catch (const std::exception& error) {
        return saveFault(error);
    }
}

std::optional<SaveFault> savePDF(const ConditionReport& report, const QPageSize& paper,
                                 const std::filesystem::path& file) {
    return savePDF(report, QPageLayout(paper, QPageLayout::Portrait, {}), {}, file);
}

QPageSize defaultPaper(std::optional<Paper> setting) {
    const bool american = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
    return QPageSize(setting.value_or(american ? Paper::letter : Paper::a4) == Paper::letter
                         ? QPageSize::Letter
                         : QPageSize::A4);
}

} // namespace tessivo::ReportPrinting

#pragma once

#include "app/model/SaveFault.h"
#include "kit/report/ConditionReport.h"
#include "platform/Desktop.h"

#include <QPageLayout>
#include <QPageRanges>
#include <QPagedPaintDevice>
#include <filesystem>
#include <optional>

/// Printing and saving as PDF: one operation with two outlets. Main thread.
namespace tessivo::ReportPrinting {

inline constexpr double margin = 50; ///< points, on all four sides

/// Draws the whole report on the device, as many pages as it takes, on the paper the device is set to.
/// False if the device can't be drawn on.
bool print(const ConditionReport& report, QPagedPaintDevice& device, const std::string& timeZone = {});

/// The finished PDF in memory: real text, embedded fonts, the document's title set, no links. Throws
/// std::runtime_error if no whole PDF came out. The layout tells the paper and its orientation; no page
/// ranges are all pages.
std::string pdf(const ConditionReport& report, const QPageLayout& layout, const QPageRanges& pages = {},
                const std::string& timeZone = {});
std::string pdf(const ConditionReport& report, const QPageSize& paper, const std::string& timeZone = {});

/// The PDF under this name, whole or not at all: why it isn't there, or nothing if it is.
std::optional<SaveFault> savePDF(const ConditionReport& report, const QPageLayout& layout,
                                 const QPageRanges& pages, const std::filesystem::path& file);
std::optional<SaveFault> savePDF(const ConditionReport& report, const QPageSize& paper,
                                 const std::filesystem::path& file);

/// US Letter or A4, as the system's setting has it; without one, as is used where the user is.
QPageSize defaultPaper(std::optional<Paper> setting);

} // namespace tessivo::ReportPrinting

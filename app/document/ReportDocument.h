#pragma once

#include "kit/report/ConditionReport.h"

#include <QTextDocument>
#include <memory>

/// The report as styled text: one flow of paragraphs with colours, tab stops and the buyer's box.
/// Everything in it is plain text; nothing is ever loaded from an address that stands in a report.
namespace tessivo::ReportDocument {

/// What a text, and all texts together, may hold before the sheet on the screen shows a beginning alone, in
/// UTF-16 units, and how many paragraphs. Print, PDF, the file and the copied text always hold the whole.
inline constexpr int longestText = 50'000;
inline constexpr int longestDocument = 1'000'000;
inline constexpr int mostParagraphs = 60'000;

/// The layout's positions and sizes are in units of so many to the point.
inline constexpr int unitsPerPoint = 2;

/// The document laid out `width` points wide and as tall as it needs. A pure function of the report
/// and the time zone (empty: the system's). Main thread, or any one thread with the application's fonts.
std::unique_ptr<QTextDocument> make(const ConditionReport& report, double width,
                                    const std::string& timeZone = {});

/// The same document on pages of this size, with these margins on all four sides, in points.
std::unique_ptr<QTextDocument> paged(const ConditionReport& report, QSizeF paper, double margin,
                                     const std::string& timeZone = {});

} // namespace tessivo::ReportDocument

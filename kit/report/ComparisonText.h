#pragma once

#include "kit/report/ReportComparison.h"

/// A comparison as plain text in English and as JSON. Pure functions; any thread.
namespace tessivo::ComparisonText {

/// No line feed at the end. `timeZone` is a zone name; empty means the system's.
std::string text(const ReportComparison& comparison, const std::string& timeZone);

/// The whole value, sorted and indented, dates as ISO 8601. Throws std::invalid_argument for a date outside
/// the years 0 to 9999.
std::string json(const ReportComparison& comparison);

/// The heading over the items of a change: "Worse", "Not confirmed".
const char* heading(Change change);
/// "yes", "can't tell".
const char* word(SameMac sameMac);
/// What the verdict on two files can't know; empty where nothing is in doubt.
std::string caution(const ReportComparison& comparison);
/// In place of the lines of a side that tells nothing of an item.
extern const char* const notTold;
/// Under every comparison.
extern const char* const disclaimer;
/// "11 tests unchanged"
std::string foldedTitle(std::int64_t count);

} // namespace tessivo::ComparisonText

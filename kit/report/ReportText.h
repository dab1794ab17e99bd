#pragma once

#include "kit/report/ConditionReport.h"

/// The report as plain text, in English. Pure functions of the report and a time zone; any thread.
namespace tessivo::ReportText {

/// No line feed at the end. `timeZone` is a zone name; empty means the system's.
std::string text(const ConditionReport& report, const std::string& timeZone);
/// "March 5, 2026 at 4:07 PM PST".
std::string dateText(Date date, const std::string& timeZone);
extern const char* const disclaimer;
/// The four-character mark of a status: "[OK]".
const char* mark(TestStatus status);

} // namespace tessivo::ReportText

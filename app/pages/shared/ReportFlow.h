#pragma once

#include "app/pages/PageContext.h"

class QWidget;

/// What can be done with a report, from a page or from the menus. Main thread.
namespace tessivo::ReportFlow {

/// The save panel and then the PDF. True if it was saved; a failure is told in a dialog.
bool savePDF(const PageContext& context, const ConditionReport& report, QWidget* parent);
/// The print panel and then the print. A cancel is no error.
void print(const PageContext& context, const ConditionReport& report, QWidget* parent);
/// The plain text, in the current time zone, on the pasteboard.
void copyText(const PageContext& context, const ConditionReport& report);
/// The save panel and then the report file. A failure is told in a dialog, for who believes a file
/// is there may erase what it was made from; a cancel is no error.
void saveFile(const PageContext& context, const ConditionReport& report, QWidget* parent);

} // namespace tessivo::ReportFlow

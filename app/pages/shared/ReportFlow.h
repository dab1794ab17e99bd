#pragma once

#include "app/pages/PageContext.h"

class QWidget;

/// What can be done with a report, from a page or from the menus. Main thread.
namespace tessivo::ReportFlow {

/// `keep` where a report that is saved as PDF or printed goes to History too; History's own reports are there
/// already.
enum class History { keep, leave };

/// The save panel and then the PDF. A failure is told in a dialog; a cancel is no error.
void savePDF(const PageContext& context, const ConditionReport& report, QWidget* parent, History history);
/// The print panel and then the print; whatever becomes of it the report goes to History. A failure is told
/// in a dialog.
void print(const PageContext& context, const ConditionReport& report, QWidget* parent, History history);
/// The plain text, in the current time zone, on the pasteboard.
void copyText(const PageContext& context, const ConditionReport& report);
/// The save panel and then the report file. A failure is told in a dialog: who believes that the file is
/// there may erase the Mac. A cancel is no error.
void saveFile(const PageContext& context, const ConditionReport& report, QWidget* parent);

} // namespace tessivo::ReportFlow

#pragma once

#include "kit/report/ConditionReport.h"

#include <QString>
#include <QStringList>
#include <string>
#include <vector>

/// Reports to set, and what others read from a PDF.
namespace tessivo::documenttest {

/// The sample answers on the laptop that they were made for, with a problem, notes and a handover.
ConditionReport sampleReport();
/// The same answers on the Mac of a machine file, as its readers read it.
ConditionReport reportOf(const std::string& machineFile);
/// The names of the machine files, sorted.
std::vector<std::string> machineFiles();

/// What one of poppler's tools prints for the PDF, its options before the file.
QString poppler(const std::string& tool, const QStringList& options, const std::string& pdf);
/// The text as a reader's eye takes it: runs of white space as one blank, pages in order.
QString readText(const std::string& pdf);

/// Every line of the report's document, in order.
QStringList linesOf(const ConditionReport& report, const std::string& timeZone);
/// The first of the lines that isn't found behind the one before it; empty if all are in order.
QString firstMissing(const QString& text, const QStringList& lines);

} // namespace tessivo::documenttest

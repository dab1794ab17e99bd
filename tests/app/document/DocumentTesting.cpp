#include "tests/app/document/DocumentTesting.h"

#include "app/document/ReportDocument.h"
#include "app/readers/Readers.h"
#include "kit/Samples.h"
#include "kit/report/ReportAssembler.h"
#include "platform/simulated/ManualScheduler.h"
#include "platform/simulated/SimulatedPlatform.h"
#include "tests/TemporaryFolder.h"

#include <QProcess>

namespace tessivo::documenttest {

namespace {

constexpr Date made{794'448'429}; // March 5, 2026, 4:07 PM PST

ConditionReport reportFrom(const SessionState& session) {
    return ReportAssembler::make(session, made, "1.0", Samples::notes());
}

} // namespace

ConditionReport sampleReport() {
    return reportFrom(Samples::session());
}

ConditionReport reportOf(const std::string& machineFile) {
    ManualScheduler clock(made);
    SimulatedPlatform mac(loadMachineFile(std::filesystem::path(TESSIVO_MACHINES) / machineFile), clock);
    return reportFrom(Samples::session(readMachineInfo(mac.machineFacts(), mac.registry())));
}

std::vector<std::string> machineFiles() {
    return namesIn(TESSIVO_MACHINES);
}

QString poppler(const std::string& tool, const QStringList& options, const std::string& pdf) {
    const TemporaryFolder folder;
    const auto file = folder.write("report.pdf", pdf);
    QProcess process;
    const QString path = QString::fromStdString(file.string());
    const bool toText = tool == "pdftotext";
    process.start(QString::fromStdString(tool),
                  options + (toText ? QStringList{path, "-"} : QStringList{path}));
    if (!process.waitForFinished() || process.exitCode() != 0)
        throw std::runtime_error(tool + ": " + process.readAllStandardError().toStdString());
    return QString::fromUtf8(process.readAllStandardOutput());
}

QString readText(const std::string& pdf) {
    return poppler("pdftotext", {"-layout"}, pdf).simplified();
}

QStringList linesOf(const ConditionReport& report, const std::string& timeZone) {
    const auto document = ReportDocument::paged(report, QSizeF(612, 792), 50, timeZone);
    QStringList lines;
    for (const QString& line : document->toPlainText().split('\n'))
        lines << line.simplified();
    return lines;
}

QString firstMissing(const QString& text, const QStringList& lines) {
    qsizetype at = 0;
    for (const QString& line : lines) {
        const qsizetype found = text.indexOf(line, at);
        if (found < 0)
            return line + " | behind: " + text.sliced(at, std::min<qsizetype>(300, text.size() - at));
        at = found + line.size();
    }
    return {};
}

} // namespace tessivo::documenttest

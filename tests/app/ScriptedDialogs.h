#pragma once

#include "app/dialogs/Dialogs.h"

#include <QPrinter>
#include <QStringList>

namespace tessivo::pagetest {

/// Answers dialogs in the person's place, and remembers what was asked.
class ScriptedDialogs final : public Dialogs {
public:
    std::optional<std::filesystem::path> saveAnswer; ///< absent: the panel is cancelled
    std::vector<std::filesystem::path> openAnswer;
    bool printAnswer = false;
    std::filesystem::path printFile; ///< where an accepted print goes
    bool confirmAnswer = false;

    QStringList asked; ///< one line a dialog: offered names, messages, alerts

    std::optional<std::filesystem::path> savePath(QWidget*, FileKind, const QString& name) override {
        asked << name;
        return saveAnswer;
    }
    std::vector<std::filesystem::path> openReportFiles(QWidget*, const QString& message) override {
        asked << message;
        return openAnswer;
    }
    bool choosePrinter(QWidget*, QPrinter& printer) override {
        asked << printer.docName();
        if (printAnswer) {
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(QString::fromStdString(printFile.string()));
        }
        return printAnswer;
    }
    bool confirm(QWidget*, const QString& message, const QString& informative, const QString& accept,
                 const QString& cancel) override {
        asked << QStringList{message, informative, accept, cancel}.join(QStringLiteral(" | "));
        return confirmAnswer;
    }
    void inform(QWidget*, const QString& message, const QString& text) override {
        asked << message + QStringLiteral(" | ") + text;
    }
};

} // namespace tessivo::pagetest

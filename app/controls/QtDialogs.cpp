#include "app/controls/QtDialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPushButton>
#include <QStandardPaths>

namespace tessivo {

namespace {

std::filesystem::path toPath(const QString& name) {
    return std::filesystem::path(QFile::encodeName(name).toStdString());
}

QString documents() {
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

/// A name that is one file name whatever stands in it.
QString fileName(QString name) {
    for (QChar& c : name)
        if (c == u'/' || c == u'\\' || c.category() == QChar::Other_Control) c = u'-';
    return name;
}

void setTexts(QMessageBox& box, const QString& message, const QString& informative) {
    box.setTextFormat(Qt::PlainText);
    box.setText(message);
    box.setInformativeText(informative);
}

} // namespace

std::optional<std::filesystem::path> QtDialogs::savePath(QWidget* parent, FileKind kind,
                                                         const QString& name) {
    const QString suffix = kind == FileKind::pdf ? QStringLiteral("pdf") : QStringLiteral("json");
    QFileDialog dialog(parent, QObject::tr("Save"), documents());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(suffix);
    dialog.setNameFilter(kind == FileKind::pdf ? QObject::tr("PDF (*.pdf)")
                                               : QObject::tr("Report file (*.json)"));
    dialog.selectFile(fileName(name));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return toPath(dialog.selectedFiles().constFirst());
}

std::vector<std::filesystem::path> QtDialogs::openReportFiles(QWidget* parent, const QString& message) {
    QFileDialog dialog(parent, message, documents());
    dialog.setFileMode(QFileDialog::ExistingFiles);
    dialog.setNameFilter(QObject::tr("Report files (*.json)"));
    std::vector<std::filesystem::path> files;
    if (dialog.exec() == QDialog::Accepted)
        for (const QString& file : dialog.selectedFiles())
            files.push_back(toPath(file));
    return files;
}

bool QtDialogs::choosePrinter(QWidget* parent, QPrinter& printer) {
    return QPrintDialog(&printer, parent).exec() == QDialog::Accepted;
}

bool QtDialogs::confirm(QWidget* parent, const QString& message, const QString& informative,
                        const QString& accept, const QString& cancel) {
    QMessageBox box(parent);
    setTexts(box, message, informative);
    const QPushButton* accepting = box.addButton(accept, QMessageBox::AcceptRole);
    QPushButton* cancelling = box.addButton(cancel, QMessageBox::RejectRole);
    box.setEscapeButton(cancelling);
    box.exec();
    return box.clickedButton() == accepting;
}

void QtDialogs::inform(QWidget* parent, const QString& message, const QString& text) {
    QMessageBox box(parent);
    box.setIcon(QMessageBox::Information);
    setTexts(box, message, text);
    box.addButton(QMessageBox::Ok);
    box.exec();
}

} // namespace tessivo

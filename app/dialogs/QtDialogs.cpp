#include "app/dialogs/QtDialogs.h"

#include "platform/Desktop.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
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

/// The file's name with the kind's extension, which is added unless the name ends in just it. History finds
/// ".json" alone; a PDF's may be written in capitals.
QString withExtension(const QString& file, Dialogs::FileKind kind) {
    const bool pdf = kind == Dialogs::FileKind::pdf;
    const QString extension = pdf ? QStringLiteral(".pdf") : QStringLiteral(".json");
    const bool ends = file.endsWith(extension, pdf ? Qt::CaseInsensitive : Qt::CaseSensitive);
    // A name that is nothing but an extension has none.
    const bool named = QFileInfo(file).fileName().size() > extension.size();
    return ends && named ? file : file + extension;
}

bool mayReplace(QWidget* parent, const QFileInfo& file) {
    QMessageBox box(parent);
    setTexts(box, QStringLiteral("“%1” already exists. Do you want to replace it?").arg(file.fileName()),
             QStringLiteral("What the file in the folder “%1” holds now will be lost.")
                 .arg(file.absoluteDir().dirName()));
    box.setIcon(QMessageBox::Warning);
    const QPushButton* replace = box.addButton(QStringLiteral("Replace"), QMessageBox::AcceptRole);
    QPushButton* cancel = box.addButton(QStringLiteral("Cancel"), QMessageBox::RejectRole);
    box.setDefaultButton(cancel);
    box.setEscapeButton(cancel);
    box.exec();
    return box.clickedButton() == replace;
}

} // namespace

std::optional<std::filesystem::path> QtDialogs::savePath(QWidget* parent, FileKind kind,
                                                         const QString& name) {
    QFileDialog dialog(parent, QStringLiteral("Save"), documents());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    // The panel would ask for the name as it was typed.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setNameFilter(kind == FileKind::pdf ? QStringLiteral("PDF (*.pdf)")
                                               : QStringLiteral("Report file (*.json)"));
    dialog.selectFile(fileName(name));
    while (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
        const QString file = withExtension(dialog.selectedFiles().constFirst(), kind);
        const QFileInfo there(file);
        if (!(there.exists() || there.isSymLink()) || mayReplace(parent, there)) return toPath(file);
        dialog.selectFile(file);
    }
    return std::nullopt;
}

std::vector<std::filesystem::path> QtDialogs::openReportFiles(QWidget* parent, const QString& message) {
    if (m_desktop)
        if (auto files = m_desktop->openFiles({message.toStdString(), documents().toStdString(), {"json"}}))
            return *std::move(files);
    QFileDialog dialog(parent, message, documents());
    dialog.setFileMode(QFileDialog::ExistingFiles);
    dialog.setNameFilter(QStringLiteral("Report files (*.json)"));
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

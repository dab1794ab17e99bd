#pragma once

#include <QString>
#include <filesystem>
#include <optional>
#include <vector>

class QPrinter;
class QWidget;

namespace tessivo {

/// The modal dialogs that pages and menus ask for. Main thread; each call returns when the person has
/// answered. A cancelled panel is nothing, or false. Tests answer in the person's place.
class Dialogs {
public:
    enum class FileKind { pdf, json };

    virtual ~Dialogs() = default;

    /// A save panel limited to the kind, with this name offered. The path ends in the kind's extension, and
    /// where something stands there already, the person has said that it may be replaced.
    virtual std::optional<std::filesystem::path> savePath(QWidget* parent, FileKind kind,
                                                          const QString& name) = 0;
    /// A panel for report files with multiple selection and this message.
    virtual std::vector<std::filesystem::path> openReportFiles(QWidget* parent, const QString& message) = 0;
    /// The print panel; the printer is set up as the person chose.
    virtual bool choosePrinter(QWidget* parent, QPrinter& printer) = 0;
    /// Two buttons, the accepting one first; true if it was chosen.
    virtual bool confirm(QWidget* parent, const QString& message, const QString& informative,
                         const QString& accept, const QString& cancel) = 0;
    /// An informational alert with one button, "OK".
    virtual void inform(QWidget* parent, const QString& message, const QString& text) = 0;
};

} // namespace tessivo

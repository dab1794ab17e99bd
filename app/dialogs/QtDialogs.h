#pragma once

#include "app/dialogs/Dialogs.h"

namespace tessivo {

class Desktop;

/// Qt's panels, and the system's own where `desktop` has one.
class QtDialogs final : public Dialogs {
public:
    /// `desktop` outlives the dialogs; null: Qt's panels alone.
    explicit QtDialogs(Desktop* desktop = nullptr) : m_desktop(desktop) {}

    std::optional<std::filesystem::path> savePath(QWidget* parent, FileKind kind,
                                                  const QString& name) override;
    std::vector<std::filesystem::path> openReportFiles(QWidget* parent, const QString& message) override;
    bool choosePrinter(QWidget* parent, QPrinter& printer) override;
    bool confirm(QWidget* parent, const QString& message, const QString& informative, const QString& accept,
                 const QString& cancel) override;
    void inform(QWidget* parent, const QString& message, const QString& text) override;

private:
    Desktop* m_desktop;
};

} // namespace tessivo

#pragma once

#include "app/dialogs/Dialogs.h"

namespace tessivo {

/// The desktop's own panels.
class QtDialogs final : public Dialogs {
public:
    std::optional<std::filesystem::path> savePath(QWidget* parent, FileKind kind,
                                                  const QString& name) override;
    std::vector<std::filesystem::path> openReportFiles(QWidget* parent, const QString& message) override;
    bool choosePrinter(QWidget* parent, QPrinter& printer) override;
    bool confirm(QWidget* parent, const QString& message, const QString& informative, const QString& accept,
                 const QString& cancel) override;
    void inform(QWidget* parent, const QString& message, const QString& text) override;
};

} // namespace tessivo

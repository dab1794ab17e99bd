#pragma once

#include "platform/qt/QtDesktop.h"

namespace tessivo {

/// A link to a pane of a Mac's settings opens the pane of this desktop that comes closest.
class LinuxDesktop final : public QtDesktop {
public:
    void openURL(const std::string& url) override;
    bool canOpenURL(const std::string& url) const override;
    std::optional<Paper> paper() const override;
    void coverScreen(QWindow& window, QScreen& screen) override;
    std::optional<std::vector<std::filesystem::path>> openFiles(const OpenPanel&) override {
        return std::nullopt;
    }
};

} // namespace tessivo

#pragma once

#include "platform/qt/QtDesktop.h"

#include <QRect>

namespace tessivo {

/// The desktop of this Mac.
class MacDesktop final : public QtDesktop {
public:
    bool windowsHaveIcons() const override { return false; }
    /// The paper of a new page; where nobody chose one, the system takes that of the person's region.
    std::optional<Paper> paper() const override;
    void coverScreen(QWindow& window, QScreen& screen) override;
    std::optional<std::vector<std::filesystem::path>> openFiles(const OpenPanel& panel) override;

    /// From Qt's coordinates, which begin at the upper left corner of the first screen and run down, to the
    /// system's, which begin at its lower left corner and run up.
    static QRectF flipped(const QRectF& area, double firstScreenHeight);
    /// Whether a panel offers the file; all files where it names no extensions.
    static bool isOffered(const std::filesystem::path& file, const std::vector<std::string>& extensions);
    /// The paper of this size in points, in either direction; nothing for a size that is no sheet's.
    static std::optional<Paper> paperOf(double width, double height);
};

} // namespace tessivo

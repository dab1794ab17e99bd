#pragma once

#include "platform/Desktop.h"

#include <QRect>

/// What windows of this program ask of the window system itself. Main thread.
namespace tessivo::MacWindows {

/// Puts a window that isn't shown yet above all others, in every space, over the frame. The frame counts from
/// the lower left corner of the first screen.
void cover(QWindow& window, const QRectF& frame);
/// Files that the person chose among those that `isOffered`; none where they cancelled.
std::vector<std::filesystem::path> choose(const OpenPanel& panel,
                                          std::function<bool(const std::filesystem::path&)> isOffered);

} // namespace tessivo::MacWindows

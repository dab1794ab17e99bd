#pragma once

/// Every distance of the window, in logical pixels at text scale 1. Heights and symbol sizes are given to
/// `Theme::scaled`, which lets them grow with a larger system font; spaces and corners stay as they are.
namespace tessivo {

namespace Space {
inline constexpr int xxs = 4, xs = 6, s = 8, m = 10, l = 12, xl = 16, xxl = 20, xxxl = 24;
inline constexpr int page = 28;         ///< padding of a page
inline constexpr int block = 16;        ///< between blocks, and inside a card
inline constexpr int overviewCard = 12; ///< between the cards of This Mac
inline constexpr int heading = 10;      ///< from a heading to what it heads
inline constexpr int button = 8;        ///< between buttons of a row; `buttonWide` where they differ in kind
inline constexpr int buttonWide = 12;
inline constexpr int tile = 12; ///< gap of the tile grid
} // namespace Space

/// The distances between the parts of a page's head and foot.
namespace PageHead {
inline constexpr int summaryGap = 10, howGap = 6, howWidth = 760;
inline constexpr int contentGap = 20, dividerGap = 24, overrideGap = 18, overrideInner = 12;
} // namespace PageHead

namespace Corner {
inline constexpr double trackpadCell = 4, key = 5, checkbox = 5, swatch = 6, segment = 6, button = 7,
                        field = 7;
inline constexpr double track = 8, row = 8, textBox = 8, tile = 10, picture = 10, innerPanel = 10, menu = 10;
inline constexpr double panel = 12, well = 12, trackpadArea = 14, sheet = 14;
} // namespace Corner

namespace Width {
inline constexpr int sidebar = 230, sidebarMinimum = 200;
inline constexpr int column = 980, columnNarrow = 860; ///< with the padding
inline constexpr int identityLabel = 112, factLabel = 160;
inline constexpr int twoColumns = 720; ///< inner width from which two stand side by side
inline constexpr int tileMinimum = 250;
inline constexpr int sheet = 640;
} // namespace Width

namespace Height {
inline constexpr int control = 30, prominent = 34, field = 32, notes = 110;
inline constexpr int checkbox = 18, badge = 24, lowTag = 20, chip = 30, progress = 6, meter = 10;
inline constexpr int sidebarRow = 32, portRow = 52, connectedRow = 44, factRow = 38, identityRow = 30;
inline constexpr int historyRow = 50, pickupRow = 58, microphoneRow = 76, sheet = 660;
inline constexpr int menuBar = 28, menuItem = 28;
} // namespace Height

namespace SymbolSize {
inline constexpr int pageHead = 28, thisMac = 46, tile = 22, tileGlyph = 18, row = 20, sidebar = 18;
inline constexpr int button = 16, glyph = 16, chip = 18, badge = 15, link = 14;
} // namespace SymbolSize

} // namespace tessivo

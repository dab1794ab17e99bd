#pragma once

#include "kit/catalog/KeyboardLayout.h"

#include <QRectF>

namespace tessivo {

/// Where the keys of a diagram lie, in pixels. The diagram is 15 units wide and 5.62 high: the first row
/// is 0.62 of a unit high, the other five 1 unit. A pure value.
struct KeyboardGeometry {
    static constexpr double unitsWide = 15;
    static constexpr double unitsHigh = 5.62;

    struct Place {
        KeySpec key;
        QRectF rect;
        /// The lower half of the tall return key; null for every other key.
        QRectF lower;

        QRectF bounds() const { return lower.isNull() ? rect : rect.united(lower); }
    };
    enum class Direction { left, right, up, down };

    double unit = 0;
    double gap = 0;
    /// Each key of the layout once, in the order of `KeyboardLayout::keys`.
    std::vector<Place> places;

    /// Fills the width; half a gap stays free around every key.
    static KeyboardGeometry make(const KeyboardLayout& layout, double width, double gap);
    static double heightFor(double width) { return width / unitsWide * unitsHigh; }

    /// The place to the side of another, or that place itself at the edge. Up and down go to the nearest
    /// key of the next row.
    std::size_t neighbour(std::size_t place, Direction direction) const;
};

} // namespace tessivo

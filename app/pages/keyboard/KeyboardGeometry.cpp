#include "app/pages/keyboard/KeyboardGeometry.h"

#include <algorithm>
#include <cmath>

namespace tessivo {
namespace {

constexpr double firstRowHeight = 0.62;

/// How far one span is from another; 0 where they overlap.
double apart(double aFrom, double aTo, double bFrom, double bTo) {
    return std::max({0.0, bFrom - aTo, aFrom - bTo});
}

} // namespace

KeyboardGeometry KeyboardGeometry::make(const KeyboardLayout& layout, double width, double gap) {
    KeyboardGeometry geometry;
    geometry.unit = width / unitsWide;
    geometry.gap = gap;
    const auto add = [&](const KeySpec& key, const QRectF& cell) {
        const double half = std::min({gap, cell.width(), cell.height()}) / 2;
        const QRectF rect = cell.adjusted(half, half, -half, -half);
        // The lower half of a tall key comes as the same key once more.
        const auto upper =
            std::ranges::find(geometry.places, key.id, [](const Place& p) { return p.key.id; });
        if (upper == geometry.places.end())
            geometry.places.push_back({key, rect, {}});
        else
            upper->lower = rect;
    };

    double y = 0;
    double rowHeight = firstRowHeight * geometry.unit;
    for (const KeyboardLayout::Row& row : layout.rows) {
        double x = 0;
        for (const KeySlot& slot : row) {
            if (const auto* stack = std::get_if<KeyStack>(&slot)) {
                const double stackWidth = stack->upper.width * geometry.unit;
                // The two caps stand closer than neighbours do, to keep room for their labels.
                const double closer = gap / 4;
                add(stack->upper, QRectF(x, y, stackWidth, rowHeight / 2 + closer));
                add(stack->lower, QRectF(x, y + rowHeight / 2 - closer, stackWidth, rowHeight / 2 + closer));
                x += stackWidth;
            } else {
                const KeySpec& key = std::get<KeySpec>(slot);
                add(key, QRectF(x, y, key.width * geometry.unit, rowHeight));
                x += key.width * geometry.unit;
            }
        }
        y += rowHeight;
        rowHeight = geometry.unit;
    }
    return geometry;
}

std::size_t KeyboardGeometry::neighbour(std::size_t place, Direction direction) const {
    const QRectF from = places.at(place).rect;
    const bool sideways = direction == Direction::left || direction == Direction::right;
    const bool forward = direction == Direction::right || direction == Direction::down;

    std::size_t best = place;
    double leastCost = 0;
    for (std::size_t i = 0; i < places.size(); ++i) {
        const QRectF to = places[i].rect;
        const QPointF step = to.center() - from.center();
        const double along = (sideways ? step.x() : step.y()) * (forward ? 1 : -1);
        const bool sameRow = apart(from.top(), from.bottom(), to.top(), to.bottom()) == 0;
        if (i == place || along <= 0 || sideways != sameRow) continue;
        // Aside counts twice: the nearest key is the one most nearly above or below.
        const double cost = sideways ? along : along + 2 * std::abs(step.x());
        if (best != place && cost >= leastCost) continue;
        best = i;
        leastCost = cost;
    }
    return best;
}

} // namespace tessivo

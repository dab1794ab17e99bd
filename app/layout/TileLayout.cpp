#include "app/layout/TileLayout.h"

#include <algorithm>

namespace tessivo {

int TileLayout::columnsFor(int width) const {
    const int columns = std::max(1, (width + spacing()) / (m_minimumWidth + spacing()));
    return m_maximumColumns > 0 ? std::min(columns, m_maximumColumns) : columns;
}

int TileLayout::naturalWidth() const {
    const int columns = m_maximumColumns > 0 ? m_maximumColumns : 3;
    return columns * (m_minimumWidth + spacing()) - spacing();
}

int TileLayout::leastWidth() const {
    return std::min(m_minimumWidth, FlowingLayout::leastWidth());
}

FlowingLayout::Arrangement TileLayout::arrange(int width) const {
    Arrangement result;
    const int columns = columnsFor(width);
    const double step = double(width + spacing()) / columns;
    std::size_t first = 0; // of the row
    int column = 0, y = 0;
    const auto finishRow = [&] {
        for (; first < result.places.size(); ++first)
            result.places[first].second.setBottom(result.height - 1);
        column = 0;
        y = result.height + m_rowGap;
    };
    for (const Item& each : shown()) {
        if (column == columns) finishRow();
        const int left = qRound(column * step);
        const int own = qRound(++column * step - spacing()) - left;
        result.put(each.item.get(), {left, y, own, itemHeight(each, own)});
    }
    finishRow();
    return result;
}

} // namespace tessivo

#include "app/layout/WrapLayout.h"

#include <algorithm>

namespace tessivo {

FlowingLayout::Arrangement WrapLayout::arrange(int width) const {
    Arrangement result;
    std::size_t first = 0; // of the line
    int x = 0, y = 0;
    const auto finishLine = [&] {
        int left = alignment() & Qt::AlignHCenter ? std::max(0, (width - x) / 2) : 0;
        for (; first < result.places.size(); ++first) {
            auto& [item, place] = result.places[first];
            if (item->alignment() & Qt::AlignRight && place.x() > 0) left = std::max(0, width - x);
            const int room = result.height - y - place.height();
            place.translate(left, item->alignment() & Qt::AlignTop ? 0 : room / 2);
        }
        x = 0;
        y = result.height + m_lineGap;
    };
    for (const Item& each : shown()) {
        const int own = std::min(width, each.item->sizeHint().width());
        if (first < result.places.size()) {
            if (x + each.gap + own > width)
                finishLine();
            else
                x += each.gap;
        }
        result.put(each.item.get(), {x, y, own, itemHeight(each, own)});
        x += own;
    }
    finishLine();
    return result;
}

} // namespace tessivo

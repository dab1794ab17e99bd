#include "app/layout/ColumnLayout.h"

#include <algorithm>

namespace tessivo {

int ColumnLayout::naturalWidth() const {
    int width = 0;
    for (const Item& each : shown())
        width = std::max(width, each.item->sizeHint().width());
    return width;
}

FlowingLayout::Arrangement ColumnLayout::arrange(int width) const {
    Arrangement result;
    for (const Item& each : shown()) {
        const Qt::Alignment across = each.item->alignment() & Qt::AlignHorizontal_Mask;
        const int most = across ? each.item->sizeHint().width() : each.item->widget()->maximumWidth();
        const int own = std::min(width, most);
        const int x = across & Qt::AlignHCenter ? (width - own) / 2
                      : across & Qt::AlignRight ? width - own
                                                : 0;
        const int y = result.places.empty() ? 0 : result.height + each.gap;
        result.put(each.item.get(), {x, y, own, itemHeight(each, own)});
    }
    return result;
}

} // namespace tessivo

#include "app/layout/SplitLayout.h"

#include <algorithm>

namespace tessivo {
namespace {

constexpr int gapUnder = 12;
constexpr int leastLeading = 120; // what a leading part that could be narrower keeps beside the trailing one

} // namespace

SplitLayout::SplitLayout(QWidget* parent, QWidget* leading, QWidget* trailing, int breakBelow, int gap)
    : FlowingLayout(parent, gap), m_breakBelow(breakBelow) {
    setAlignment(Qt::AlignVCenter);
    add(leading);
    add(trailing);
}

int SplitLayout::naturalWidth() const {
    return std::max(FlowingLayout::naturalWidth(), m_breakBelow);
}

FlowingLayout::Arrangement SplitLayout::arrange(int width) const {
    Arrangement result;
    if (items().size() < 2) return result; // one of them is being deleted
    const Item &leading = items()[0], &trailing = items()[1];
    // A row of hidden buttons takes no gap either.
    const int natural = trailing.item->isEmpty() ? 0 : trailing.item->sizeHint().width();
    if (natural == 0) {
        result.put(leading.item.get(), {0, 0, width, itemHeight(leading, width)});
        result.put(trailing.item.get(), {});
        return result;
    }
    const int least = std::min(leading.item->sizeHint().width(),
                               std::max(leading.item->minimumSize().width(), leastLeading));
    const bool under = width < m_breakBelow || width < least + spacing() + natural;
    const int after = std::min(natural, width);
    const int before = under ? width : width - spacing() - after;
    QRect first(0, 0, before, itemHeight(leading, before));
    QRect second(0, 0, after, itemHeight(trailing, after));
    if (under) {
        second.moveTop(first.height() + gapUnder);
    } else {
        const int height = std::max(first.height(), second.height());
        const int room = height - second.height();
        first.moveTop((height - first.height()) / 2);
        second.moveTo(width - after, trailing.item->alignment() & Qt::AlignBottom ? room : room / 2);
    }
    result.put(leading.item.get(), first);
    result.put(trailing.item.get(), second);
    return result;
}

} // namespace tessivo

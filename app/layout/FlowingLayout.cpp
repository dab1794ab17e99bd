#include "app/layout/FlowingLayout.h"

#include <QStyle>
#include <algorithm>

namespace tessivo {
namespace {

// Layouts stand in layouts, and each level asks the one below it for its natural width and for those it
// tries.
constexpr std::size_t remembered = 8;

} // namespace

FlowingLayout::FlowingLayout(QWidget* parent, int gap) : QLayout(parent) {
    setContentsMargins(0, 0, 0, 0);
    setSpacing(gap);
}

void FlowingLayout::add(QWidget* widget, std::optional<int> gapBefore, Qt::Alignment alignment) {
    addWidget(widget);
    if (gapBefore) m_items.back().gap = *gapBefore;
    m_items.back().item->setAlignment(alignment);
}

void FlowingLayout::addItem(QLayoutItem* item) {
    m_items.push_back({std::unique_ptr<QLayoutItem>(item), spacing()});
    invalidate();
}

QLayoutItem* FlowingLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? m_items[std::size_t(index)].item.get() : nullptr;
}

QLayoutItem* FlowingLayout::takeAt(int index) {
    if (index < 0 || index >= count()) return nullptr;
    QLayoutItem* item = m_items[std::size_t(index)].item.release();
    m_items.erase(m_items.begin() + index);
    invalidate();
    return item;
}

void FlowingLayout::invalidate() {
    m_arrangements.clear();
    QLayout::invalidate();
}

const FlowingLayout::Arrangement& FlowingLayout::arrangement(int width) const {
    const auto known = std::ranges::find(m_arrangements, width, &std::pair<int, Arrangement>::first);
    if (known != m_arrangements.end()) return known->second;
    Arrangement made = arrange(width);
    if (m_arrangements.size() >= remembered) m_arrangements.erase(m_arrangements.begin());
    return m_arrangements.emplace_back(width, std::move(made)).second;
}

int FlowingLayout::heightForWidth(int width) const {
    const QMargins margins = contentsMargins();
    return arrangement(std::max(0, width - margins.left() - margins.right())).height + margins.top() +
           margins.bottom();
}

QSize FlowingLayout::sizeHint() const {
    const QMargins margins = contentsMargins();
    const int width = naturalWidth() + margins.left() + margins.right();
    return {width, heightForWidth(width)};
}

QSize FlowingLayout::minimumSize() const {
    // The height depends on the width alone; whoever lays this out asks for it.
    const QMargins margins = contentsMargins();
    return {leastWidth() + margins.left() + margins.right(), 0};
}

int FlowingLayout::naturalWidth() const {
    int width = 0;
    for (const Item& each : shown())
        width += (width > 0 ? each.gap : 0) + each.item->sizeHint().width();
    return width;
}

int FlowingLayout::leastWidth() const {
    int width = 0;
    for (const Item& each : shown())
        width = std::max(width, each.item->minimumSize().width());
    return width;
}

void FlowingLayout::setGeometry(const QRect& rect) {
    // `invalidate` forgets it; as long as it stands, so does everything in it.
    if (rect == geometry()) return;
    QLayout::setGeometry(rect);
    const QRect room = contentsRect();
    // A copy, as a widget that is moved may ask for another height.
    const Arrangement now = arrangement(room.width());
    // In more room than it needs, as in a row of a fixed height, it stands in the middle where it is told to.
    const int above = alignment() & Qt::AlignVCenter ? std::max(0, (room.height() - now.height) / 2) : 0;
    // Not through the items, which would bound a height that follows from the width by the one for the
    // natural width, and align the widget once more.
    for (const auto& [item, place] : now.places)
        item->widget()->setGeometry(QStyle::visualRect(parentWidget()->layoutDirection(), room,
                                                       place.translated(room.topLeft() + QPoint(0, above))));
}

void FlowingLayout::Arrangement::put(QLayoutItem* item, const QRect& place) {
    places.emplace_back(item, place);
    height = std::max(height, place.y() + place.height());
}

int FlowingLayout::itemHeight(const Item& each, int width) {
    if (!each.item->hasHeightForWidth()) return each.item->sizeHint().height();
    return std::max(each.item->minimumSize().height(), each.item->heightForWidth(width));
}

} // namespace tessivo

#include "app/layout/Layouts.h"

#include <QStyle>
#include <algorithm>

namespace tessivo {

FlowingLayout::~FlowingLayout() {
    for (QLayoutItem* item : m_items)
        delete item;
}

QLayoutItem* FlowingLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? m_items[size_t(index)] : nullptr;
}

QLayoutItem* FlowingLayout::takeAt(int index) {
    if (index < 0 || index >= count()) return nullptr;
    QLayoutItem* item = m_items[size_t(index)];
    m_items.erase(m_items.begin() + index);
    forget(index);
    invalidate();
    return item;
}

void FlowingLayout::invalidate() {
    m_heights.clear();
    m_sizeHint = m_minimumSize = QSize();
    QLayout::invalidate();
}

int FlowingLayout::heightForWidth(int width) const {
    constexpr size_t remembered = 8;
    for (const Measure& measure : m_heights)
        if (measure.width == width) return measure.height;
    const QMargins margins = contentsMargins();
    const int inner = std::max(0, width - margins.left() - margins.right());
    const int height = arrange(QRect(0, 0, inner, 0), false) + margins.top() + margins.bottom();
    if (m_heights.size() >= remembered) m_heights.erase(m_heights.begin());
    m_heights.push_back({width, height});
    return height;
}

QSize FlowingLayout::sizeHint() const {
    if (!m_sizeHint.isValid()) {
        const QMargins margins = contentsMargins();
        const int width = naturalWidth() + margins.left() + margins.right();
        const int height = heightForWidth(width);
        m_sizeHint = {width, height};
    }
    return m_sizeHint;
}

QSize FlowingLayout::minimumSize() const {
    // The height depends on the width alone; whoever lays this out asks for it.
    if (!m_minimumSize.isValid()) {
        const QMargins margins = contentsMargins();
        m_minimumSize = {leastWidth() + margins.left() + margins.right(), 0};
    }
    return m_minimumSize;
}

int FlowingLayout::leastWidth() const {
    int width = 0;
    for (const QLayoutItem* item : m_items)
        if (!item->isEmpty()) width = std::max(width, item->minimumSize().width());
    return width;
}

void FlowingLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    arrange(rect.marginsRemoved(contentsMargins()), true);
}

int FlowingLayout::itemHeight(QLayoutItem* item, int width) {
    const int least = item->minimumSize().height();
    // A height that follows from the width isn't bound by the one for the natural width, whatever the policy.
    if (item->hasHeightForWidth()) {
        const int most = item->widget() ? item->widget()->maximumHeight() : QWIDGETSIZE_MAX;
        return std::max(least, std::min(item->heightForWidth(width), most));
    }
    return std::max(least, std::min(item->sizeHint().height(), item->maximumSize().height()));
}

void FlowingLayout::put(QLayoutItem* item, const QRect& rect) {
    // Not through the item, which would bound a height that follows from the width by the one for the natural
    // width, and align the widget once more.
    if (QWidget* widget = item->widget())
        widget->setGeometry(rect);
    else
        item->setGeometry(rect);
}

void ColumnLayout::add(QWidget* widget, int gapAbove, Qt::Alignment alignment) {
    insert(count(), widget, gapAbove, alignment);
}

void ColumnLayout::insert(int index, QWidget* widget, int gapAbove, Qt::Alignment alignment) {
    const auto at = std::clamp(index, 0, count());
    m_places.resize(m_items.size());
    m_places.insert(m_places.begin() + at, {gapAbove, QWIDGETSIZE_MAX});
    addWidget(widget);
    m_items.back()->setAlignment(alignment);
    std::rotate(m_items.begin() + at, m_items.end() - 1, m_items.end());
}

void ColumnLayout::setMaximumItemWidth(QWidget* widget, int width) {
    m_places.resize(m_items.size());
    const int index = indexOf(widget);
    if (index >= 0) m_places[size_t(index)].maximumWidth = width;
    invalidate();
}

void ColumnLayout::forget(int index) {
    if (size_t(index) < m_places.size()) m_places.erase(m_places.begin() + index);
}

int ColumnLayout::naturalWidth() const {
    int width = 0;
    for (size_t i = 0; i < m_items.size(); ++i)
        if (!m_items[i]->isEmpty())
            width = std::max(width, std::min(m_items[i]->sizeHint().width(), placeAt(i).maximumWidth));
    return width;
}

int ColumnLayout::arrange(const QRect& rect, bool apply) const {
    int y = rect.top();
    bool first = true;
    for (size_t i = 0; i < m_items.size(); ++i) {
        QLayoutItem* item = m_items[i];
        if (item->isEmpty()) continue;
        const Place place = placeAt(i);
        if (!first) y += place.gap;
        first = false;
        int width = std::min(rect.width(), place.maximumWidth);
        const Qt::Alignment across = item->alignment() & Qt::AlignHorizontal_Mask;
        if (across) width = std::min(width, std::max(item->sizeHint().width(), item->minimumSize().width()));
        const int height = itemHeight(item, width);
        if (apply) {
            int x = rect.left();
            if (across & Qt::AlignHCenter) x += (rect.width() - width) / 2;
            if (across & Qt::AlignRight) x += rect.width() - width;
            put(item, QRect(x, y, width, height));
        }
        y += height;
    }
    return y - rect.top();
}

void WrapLayout::add(QWidget* widget, int gapBefore) {
    m_places.resize(m_items.size(), {m_gap, false});
    m_places.push_back({gapBefore < 0 ? m_gap : gapBefore, m_springPending});
    m_springPending = false;
    addWidget(widget);
}

void WrapLayout::addSpring() {
    m_springPending = true;
}

void WrapLayout::forget(int index) {
    if (size_t(index) < m_places.size()) m_places.erase(m_places.begin() + index);
}

int WrapLayout::naturalWidth() const {
    int width = 0;
    bool first = true;
    for (size_t i = 0; i < m_items.size(); ++i) {
        if (m_items[i]->isEmpty()) continue;
        if (!first) width += m_places[i].gap;
        first = false;
        width += m_items[i]->sizeHint().width();
    }
    return width;
}

int WrapLayout::arrange(const QRect& rect, bool apply) const {
    struct Cell {
        size_t index;
        int x, width, height;
    };
    int y = rect.top();
    std::vector<Cell> line;
    int used = 0;
    const auto finish = [&] {
        if (line.empty()) return;
        int height = 0;
        for (const Cell& cell : line)
            height = std::max(height, cell.height);
        if (y > rect.top()) y += m_lineGap;
        if (apply) {
            int shift = m_centered ? std::max(0, (rect.width() - used) / 2) : 0;
            for (const Cell& cell : line) {
                if (m_places[cell.index].spring && cell.index != line.front().index)
                    shift = std::max(0, rect.width() - used);
                const QRect place(rect.left() + shift + cell.x, y + (height - cell.height) / 2, cell.width,
                                  cell.height);
                put(m_items[cell.index],
                    QStyle::visualRect(parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight,
                                       rect, place));
            }
        }
        y += height;
        line.clear();
        used = 0;
    };
    for (size_t i = 0; i < m_items.size(); ++i) {
        QLayoutItem* item = m_items[i];
        if (item->isEmpty()) continue;
        const int width =
            std::min(rect.width(), std::max(item->sizeHint().width(), item->minimumSize().width()));
        int x = line.empty() ? 0 : used + m_places[i].gap;
        if (!line.empty() && x + width > rect.width()) {
            finish();
            x = 0;
        }
        line.push_back({i, x, width, itemHeight(item, width)});
        used = x + width;
    }
    finish();
    return y - rect.top();
}

int TileLayout::columnsFor(int width) const {
    int columns = std::max(1, (width + m_gap) / (m_minimumWidth + m_gap));
    if (m_maximumColumns > 0) columns = std::min(columns, m_maximumColumns);
    return columns;
}

int TileLayout::naturalWidth() const {
    const int columns = m_maximumColumns > 0 ? m_maximumColumns : 3;
    return columns * m_minimumWidth + (columns - 1) * m_gap;
}

int TileLayout::leastWidth() const {
    return std::min(m_minimumWidth, FlowingLayout::leastWidth());
}

int TileLayout::arrange(const QRect& rect, bool apply) const {
    const int columns = columnsFor(rect.width());
    const double cell = double(rect.width() - (columns - 1) * m_gap) / columns;
    const auto edge = [&](int column) { return qRound(column * (cell + m_gap)); };
    std::vector<QLayoutItem*> shown;
    for (QLayoutItem* item : m_items)
        if (!item->isEmpty()) shown.push_back(item);
    int y = rect.top();
    for (size_t start = 0; start < shown.size(); start += size_t(columns)) {
        const size_t end = std::min(shown.size(), start + size_t(columns));
        const auto widthAt = [&](size_t i) {
            return qRound(int(i - start) * (cell + m_gap) + cell) - edge(int(i - start));
        };
        int height = 0;
        for (size_t i = start; i < end; ++i)
            height = std::max(height, itemHeight(shown[i], widthAt(i)));
        if (start > 0) y += m_gap;
        if (apply)
            for (size_t i = start; i < end; ++i)
                put(shown[i], QRect(rect.left() + edge(int(i - start)), y, widthAt(i), height));
        y += height;
    }
    return y - rect.top();
}

SplitLayout::SplitLayout(QWidget* parent, QWidget* leading, QWidget* trailing, int breakBelow, int gap,
                         int gapUnder)
    : FlowingLayout(parent), m_breakBelow(breakBelow), m_gap(gap), m_gapUnder(gapUnder) {
    addWidget(leading);
    addWidget(trailing);
}

int SplitLayout::naturalWidth() const {
    int width = 0;
    for (const QLayoutItem* item : m_items)
        if (!item->isEmpty()) width += (width > 0 ? m_gap : 0) + item->sizeHint().width();
    return std::max(width, m_breakBelow);
}

int SplitLayout::arrange(const QRect& rect, bool apply) const {
    // In more room than it needs, as in a row of a fixed height, it stands in the middle.
    const int height = arrangeFromTop(rect, false);
    if (apply) arrangeFromTop(rect.translated(0, std::max(0, (rect.height() - height) / 2)), true);
    return height;
}

int SplitLayout::arrangeFromTop(const QRect& rect, bool apply) const {
    std::vector<QLayoutItem*> shown;
    for (QLayoutItem* item : m_items) {
        if (item->isEmpty()) continue;
        // A row of hidden buttons takes no gap either.
        if (item == m_items.front() || item->sizeHint().width() > 0)
            shown.push_back(item);
        else if (apply)
            put(item, QRect(rect.topLeft(), QSize(0, 0)));
    }
    if (shown.empty()) return 0;
    if (shown.size() == 1) {
        const int height = itemHeight(shown[0], rect.width());
        if (apply) put(shown[0], {rect.topLeft(), QSize(rect.width(), height)});
        return height;
    }
    QLayoutItem *leading = shown[0], *trailing = shown[1];
    const int least = std::min(leading->sizeHint().width(), std::max(leading->minimumSize().width(), 120));
    int width = trailing->sizeHint().width();
    const bool under = rect.width() < m_breakBelow || rect.width() < least + m_gap + width;
    if (under) {
        width = std::min(width, rect.width());
        const int above = itemHeight(leading, rect.width());
        const int below = itemHeight(trailing, width);
        if (apply) {
            put(leading, {rect.topLeft(), QSize(rect.width(), above)});
            put(trailing, {rect.left(), rect.top() + above + m_gapUnder, width, below});
        }
        return above + m_gapUnder + below;
    }
    const int rest = rect.width() - m_gap - width;
    const int before = itemHeight(leading, rest);
    const int after = itemHeight(trailing, width);
    const int height = std::max(before, after);
    if (apply) {
        const auto top = [&](int own) {
            if (m_vertical & Qt::AlignTop) return rect.top();
            if (m_vertical & Qt::AlignBottom) return rect.top() + height - own;
            return rect.top() + (height - own) / 2;
        };
        put(leading,
            {rect.left(), m_vertical & Qt::AlignTop ? rect.top() : rect.top() + (height - before) / 2, rest,
             before});
        put(trailing, {rect.left() + rect.width() - width, top(after), width, after});
    }
    return height;
}

} // namespace tessivo

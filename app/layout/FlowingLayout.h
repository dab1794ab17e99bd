#pragma once

#include <QLayout>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tessivo {

/// What the four layouts share: the widgets in them, the distances before each, and what has been worked out
/// for a width, which is remembered until something in it changes. The height follows from the width. A
/// hidden widget takes no room and no distance. Every length is in logical pixels.
class FlowingLayout : public QLayout {
public:
    /// `gap` is the usual distance between two widgets.
    explicit FlowingLayout(QWidget* parent, int gap = 0);

    /// `gapBefore` is the distance from the widget before it, unless it is the usual one. What an alignment
    /// does is told by each layout.
    void add(QWidget* widget, std::optional<int> gapBefore = {}, Qt::Alignment alignment = {});

    void addItem(QLayoutItem* item) final;
    int count() const final { return int(m_items.size()); }
    QLayoutItem* itemAt(int index) const final;
    QLayoutItem* takeAt(int index) final;
    bool hasHeightForWidth() const final { return true; }
    int heightForWidth(int width) const final;
    QSize sizeHint() const final;
    QSize minimumSize() const final;
    void setGeometry(const QRect& rect) final;
    void invalidate() final;
    Qt::Orientations expandingDirections() const final { return {}; }

protected:
    struct Item {
        std::unique_ptr<QLayoutItem> item;
        int gap;
    };
    /// Where the widgets stand from the top left corner, and how high they are together.
    struct Arrangement {
        void put(QLayoutItem* item, const QRect& place);

        std::vector<std::pair<QLayoutItem*, QRect>> places;
        int height = 0;
    };

    virtual Arrangement arrange(int width) const = 0;
    /// All side by side, unless a layout says otherwise.
    virtual int naturalWidth() const;
    /// That of the widest word or control.
    virtual int leastWidth() const;

    const std::vector<Item>& items() const { return m_items; }
    /// The items that take room.
    std::vector<std::reference_wrapper<const Item>> shown() const {
        std::vector<std::reference_wrapper<const Item>> found;
        for (const Item& each : m_items)
            if (!each.item->isEmpty()) found.emplace_back(each);
        return found;
    }
    static int itemHeight(const Item& each, int width);

private:
    const Arrangement& arrangement(int width) const;

    std::vector<Item> m_items;
    mutable std::vector<std::pair<int, Arrangement>> m_arrangements; ///< by their widths
};

} // namespace tessivo

#pragma once

#include <QLayout>
#include <QWidget>

#include <vector>

namespace tessivo {

/// What the layouts below share: owned items, and one arithmetic for measuring and placing.
class FlowingLayout : public QLayout {
public:
    explicit FlowingLayout(QWidget* parent) : QLayout(parent) { setContentsMargins(0, 0, 0, 0); }
    ~FlowingLayout() override;

    void addItem(QLayoutItem* item) override {
        m_items.push_back(item);
        invalidate();
    }
    int count() const override { return int(m_items.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;
    void invalidate() override;
    Qt::Orientations expandingDirections() const override { return {}; }

protected:
    /// Lays the visible items out in the rectangle and returns the height used; moves them if `apply`.
    virtual int arrange(const QRect& rect, bool apply) const = 0;
    virtual int naturalWidth() const = 0;
    virtual int leastWidth() const;
    virtual void forget(int) {}

    static int itemHeight(QLayoutItem* item, int width);
    static void put(QLayoutItem* item, const QRect& rect);
    std::vector<QLayoutItem*> m_items;

private:
    // Layouts stand in layouts, and each level asks the one below it several times.
    struct Measure {
        int width;
        int height;
    };
    mutable std::vector<Measure> m_heights;
    mutable QSize m_sizeHint, m_minimumSize;
};

/// One under another at full width, each with its own gap above; a hidden one takes its gap along.
class ColumnLayout final : public FlowingLayout {
public:
    explicit ColumnLayout(QWidget* parent = nullptr) : FlowingLayout(parent) {}

    /// `alignment` of Qt::AlignLeft or AlignHCenter gives the widget its natural width.
    void add(QWidget* widget, int gapAbove = 0, Qt::Alignment alignment = {});
    void insert(int index, QWidget* widget, int gapAbove = 0, Qt::Alignment alignment = {});
    void setMaximumItemWidth(QWidget* widget, int width);

protected:
    int arrange(const QRect& rect, bool apply) const override;
    int naturalWidth() const override;
    void forget(int index) override;

private:
    struct Place {
        int gap = 0;
        int maximumWidth = QWIDGETSIZE_MAX;
    };
    Place placeAt(size_t index) const { return index < m_places.size() ? m_places[index] : Place{}; }
    std::vector<Place> m_places;
};

/// Side by side, wrapping as whole controls; lines and controls centred on each other.
class WrapLayout final : public FlowingLayout {
public:
    explicit WrapLayout(QWidget* parent = nullptr, int gap = 8, int lineGap = 8)
        : FlowingLayout(parent), m_gap(gap), m_lineGap(lineGap) {}

    void add(QWidget* widget, int gapBefore = -1);
    /// Pushes what follows on the same line to the far edge.
    void addSpring();
    void setCentered(bool centered) {
        m_centered = centered;
        invalidate();
    }

protected:
    int arrange(const QRect& rect, bool apply) const override;
    int naturalWidth() const override;
    void forget(int index) override;

private:
    struct Place {
        int gap;
        bool spring;
    };
    int m_gap, m_lineGap;
    bool m_centered = false;
    bool m_springPending = false;
    std::vector<Place> m_places;
};

/// As many equal columns as fit; the last row stays ragged; cells of a row are equally high.
class TileLayout final : public FlowingLayout {
public:
    TileLayout(QWidget* parent, int minimumWidth, int gap)
        : FlowingLayout(parent), m_minimumWidth(minimumWidth), m_gap(gap) {}

    int columnsFor(int width) const;
    void setMaximumColumns(int columns) {
        m_maximumColumns = columns;
        invalidate();
    }

protected:
    int arrange(const QRect& rect, bool apply) const override;
    int naturalWidth() const override;
    int leastWidth() const override;

private:
    int m_minimumWidth, m_gap;
    int m_maximumColumns = 0;
};

/// A leading part that takes the room and a trailing one at the far edge, centred on each other; below
/// `breakBelow` of width, or where they don't fit, the trailing one goes under it.
class SplitLayout final : public FlowingLayout {
public:
    SplitLayout(QWidget* parent, QWidget* leading, QWidget* trailing, int breakBelow = 0, int gap = 16,
                int gapUnder = 12);
    void setTrailingAlignment(Qt::Alignment alignment) {
        m_vertical = alignment;
        invalidate();
    }

protected:
    int arrange(const QRect& rect, bool apply) const override;
    int naturalWidth() const override;

private:
    int arrangeFromTop(const QRect& rect, bool apply) const;

    int m_breakBelow, m_gap, m_gapUnder;
    Qt::Alignment m_vertical = Qt::AlignVCenter;
};

} // namespace tessivo

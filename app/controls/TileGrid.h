#pragma once

#include "app/layout/TileLayout.h"
#include "app/look/Metrics.h"
#include "app/look/Theme.h"

namespace tessivo {

/// Equal columns of at least `minimumWidth` at text scale 1, as many as fit and at most `maximumColumns` (0:
/// no limit); the last row stays ragged.
class TileGrid final : public QWidget {
    Q_OBJECT
public:
    explicit TileGrid(QWidget* parent = nullptr, int minimumWidth = Width::tileMinimum, int gap = Space::tile,
                      int maximumColumns = 0)
        : QWidget(parent),
          m_layout(new TileLayout(this, theme().scaled(minimumWidth), gap, maximumColumns, gap)) {}
    void add(QWidget* tile) { m_layout->add(tile); }
    int columns() const { return m_layout->columnsFor(width()); }

private:
    TileLayout* m_layout;
};

} // namespace tessivo

#pragma once

#include "app/layout/FlowingLayout.h"

namespace tessivo {

/// Equal columns of at least `minimumWidth`, as many as fit and at most `maximumColumns` (0: no limit). The
/// last row stays ragged; cells of a row are equally high.
class TileLayout final : public FlowingLayout {
public:
    TileLayout(QWidget* parent, int minimumWidth, int gap, int maximumColumns, int rowGap)
        : FlowingLayout(parent, gap),
          m_minimumWidth(minimumWidth),
          m_maximumColumns(maximumColumns),
          m_rowGap(rowGap) {}

    int columnsFor(int width) const;

protected:
    Arrangement arrange(int width) const override;
    int naturalWidth() const override;
    int leastWidth() const override;

private:
    int m_minimumWidth, m_maximumColumns, m_rowGap;
};

} // namespace tessivo

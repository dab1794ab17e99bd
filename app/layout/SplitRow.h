#pragma once

#include "app/layout/SplitLayout.h"

namespace tessivo {

/// A leading and a trailing part; below `breakBelow` of width the trailing one goes under the leading one.
class SplitRow final : public QWidget {
    Q_OBJECT
public:
    SplitRow(QWidget* leading, QWidget* trailing, int breakBelow = 0, int gap = 16, QWidget* parent = nullptr)
        : QWidget(parent) {
        new SplitLayout(this, leading, trailing, breakBelow, gap);
    }
};

} // namespace tessivo

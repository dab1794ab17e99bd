#pragma once

#include "app/layout/FlowingLayout.h"

namespace tessivo {

/// Side by side at their natural widths, wrapping as whole controls, those of a line centred on each other;
/// Qt::AlignTop lets a widget begin at the top of its line, Qt::AlignRight pushes it and what follows to the
/// far edge unless it begins the line. Lines stand in the middle where the layout itself is aligned so.
class WrapLayout final : public FlowingLayout {
public:
    WrapLayout(QWidget* parent, int gap, int lineGap) : FlowingLayout(parent, gap), m_lineGap(lineGap) {}

protected:
    Arrangement arrange(int width) const override;

private:
    int m_lineGap;
};

} // namespace tessivo

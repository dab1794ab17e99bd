#pragma once

#include "app/layout/FlowingLayout.h"

namespace tessivo {

/// A leading part that takes the room and a trailing one at the far edge, centred on each other; below
/// `breakBelow` of width, or where they don't fit, the trailing one goes under it. Qt::AlignBottom puts the
/// trailing one at the foot of the leading one. The leading part isn't hidden.
class SplitLayout final : public FlowingLayout {
public:
    SplitLayout(QWidget* parent, QWidget* leading, QWidget* trailing, int breakBelow = 0, int gap = 16);

protected:
    Arrangement arrange(int width) const override;
    int naturalWidth() const override;

private:
    int m_breakBelow;
};

} // namespace tessivo

#pragma once

#include "app/layout/FlowingLayout.h"

namespace tessivo {

/// One under another at full width, or as wide as a widget's maximum. An alignment across gives the widget
/// its natural width and says where it stands.
class ColumnLayout final : public FlowingLayout {
public:
    using FlowingLayout::FlowingLayout;

protected:
    Arrangement arrange(int width) const override;
    int naturalWidth() const override;
};

} // namespace tessivo

#pragma once

#include "app/layout/WrapLayout.h"

namespace tessivo {

/// A row of controls that wraps as whole controls.
class WrapRow : public QWidget {
    Q_OBJECT
public:
    explicit WrapRow(QWidget* parent = nullptr, int gap = 8, int lineGap = 8)
        : QWidget(parent), m_layout(new WrapLayout(this, gap, lineGap)) {}
    void add(QWidget* widget, std::optional<int> gapBefore = {}, Qt::Alignment alignment = {}) {
        m_layout->add(widget, gapBefore, alignment);
    }
    /// Every line in the middle of the row.
    void center() { m_layout->setAlignment(Qt::AlignHCenter); }

private:
    WrapLayout* m_layout;
};

} // namespace tessivo

#pragma once

#include "app/layout/ColumnLayout.h"

namespace tessivo {

/// A plain widget that stacks others, each with its own gap above.
class Column : public QWidget {
    Q_OBJECT
public:
    explicit Column(QWidget* parent = nullptr) : QWidget(parent), m_layout(new ColumnLayout(this)) {}
    ColumnLayout& column() { return *m_layout; }
    void add(QWidget* widget, int gapAbove = 0, Qt::Alignment alignment = {}) {
        m_layout->add(widget, gapAbove, alignment);
    }

private:
    ColumnLayout* m_layout;
};

} // namespace tessivo

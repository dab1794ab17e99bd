#pragma once

#include "app/layout/Layouts.h"

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

/// A row of controls that wraps as whole controls.
class WrapRow final : public QWidget {
    Q_OBJECT
public:
    explicit WrapRow(QWidget* parent = nullptr, int gap = 8, int lineGap = 8)
        : QWidget(parent), m_layout(new WrapLayout(this, gap, lineGap)) {}
    /// `gapBefore` of -1 is the row's own gap.
    void add(QWidget* widget, int gapBefore = -1) { m_layout->add(widget, gapBefore); }
    /// Pushes what follows to the far edge.
    void addSpring() { m_layout->addSpring(); }
    void setCentered(bool centered) { m_layout->setCentered(centered); }

private:
    WrapLayout* m_layout;
};

/// A leading and a trailing part; below `breakBelow` of width the trailing one goes under the leading one.
class SplitRow final : public QWidget {
    Q_OBJECT
public:
    SplitRow(QWidget* leading, QWidget* trailing, int breakBelow = 0, int gap = 16, QWidget* parent = nullptr)
        : QWidget(parent), m_layout(new SplitLayout(this, leading, trailing, breakBelow, gap)) {}
    void setTrailingAlignment(Qt::Alignment alignment) { m_layout->setTrailingAlignment(alignment); }

private:
    SplitLayout* m_layout;
};

} // namespace tessivo

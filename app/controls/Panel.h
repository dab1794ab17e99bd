#pragma once

#include "app/layout/ColumnLayout.h"

namespace tessivo {

/// The one card style: a column on a rounded surface. `list` has no padding of its own and puts dividers
/// between what `addRow` adds; `inner` stands inside another panel.
class Panel : public QWidget {
    Q_OBJECT
public:
    enum class Kind { card, list, inner };

    explicit Panel(Kind kind = Kind::card, QWidget* parent = nullptr);

    void add(QWidget* widget, int gapAbove = 0, Qt::Alignment alignment = {}) {
        m_layout->add(widget, gapAbove, alignment);
    }
    /// One row of a list card, after a divider that ends so far from the edges, in logical pixels; a `right`
    /// of -1 is as far as `left`.
    void addRow(QWidget* row, int left = 0, int right = -1);
    /// Takes all rows out and deletes them.
    void clear();
    ColumnLayout& column() { return *m_layout; }
    void setPadding(int horizontal, int vertical);
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent*) override;

private:
    Kind m_kind;
    ColumnLayout* m_layout;
    QList<std::pair<QWidget*, QWidget*>> m_dividers;
};

} // namespace tessivo

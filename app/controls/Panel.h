#pragma once

#include "app/layout/WrapRow.h"
#include "app/look/Metrics.h"
#include "app/look/Theme.h"

namespace tessivo {

/// A hairline across the width it is given.
class Divider final : public QWidget {
    Q_OBJECT
public:
    explicit Divider(QWidget* parent = nullptr);
    QSize sizeHint() const override { return {1, 1}; }

protected:
    void paintEvent(QPaintEvent*) override;
};

/// The one card style: a column on a rounded surface. `list` has no padding of its own and puts dividers
/// between what `addRow` adds; `inner` stands inside another panel.
class Panel : public QWidget {
    Q_OBJECT
public:
    enum class Kind { card, list, inner };

    explicit Panel(Kind kind = Kind::card, QWidget* parent = nullptr);

    void add(QWidget* widget, int gapAbove = 0, Qt::Alignment alignment = {});
    /// One row of a list card, after a divider inset from the left by `dividerInset`.
    void addRow(QWidget* row, int dividerInset = 0);
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

#pragma once

#include "app/controls/SidebarRow.h"
#include "app/layout/Column.h"

namespace tessivo {

/// A column of rows with headers between them: one stop of the Tab key, arrows, Home and End choose. The
/// owner answers `chosen` by setting the current row.
class RowList final : public Column, public AccessibleTraits {
    Q_OBJECT
public:
    explicit RowList(const QString& name, QWidget* parent = nullptr);

    void addRow(SidebarRow* row, int gapAbove = 0);
    void addHeader(QWidget* header, int gapAbove = 0) { add(header, gapAbove); }
    const QList<SidebarRow*>& rows() const { return m_rows; }
    SidebarRow* current() const { return m_current; }
    /// Null clears the selection. Says nothing.
    void setCurrent(SidebarRow* row);

    QAccessible::Role spokenRole() const override { return QAccessible::List; }
    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void chosen(tessivo::SidebarRow* row);

private:
    void updateTabStops();
    SidebarRow* reached(SidebarRow* from, int key) const;
    QList<SidebarRow*> m_rows;
    SidebarRow* m_current = nullptr;
};

} // namespace tessivo

#pragma once

#include "app/controls/ClickControl.h"
#include "app/layout/WrapRow.h"
#include "kit/vocabulary/TestStatus.h"

#include <optional>

namespace tessivo {

/// A row of a list that can be chosen: hover, press, selection and its ring, drawn inside. What stands in it
/// is drawn by a subclass or laid in as children, which must let the mouse through.
class ListRow : public ClickControl {
    Q_OBJECT
public:
    explicit ListRow(QWidget* parent = nullptr);

    bool isSelected() const { return m_selected; }
    void setSelected(bool selected);
    QAccessible::Role spokenRole() const override { return QAccessible::ListItem; }
    void addSpokenState(QAccessible::State& state) const override;
    bool hasOuterRing() const override { return false; }
    bool isOneElement() const override { return true; }

protected:
    void paintEvent(QPaintEvent*) override;
    void focusInEvent(QFocusEvent*) override;
    void focusOutEvent(QFocusEvent*) override;

private:
    bool m_selected = false;
};

/// A page in the sidebar: symbol, title, status glyph. Its accessible name is the title and the status word.
class SidebarRow final : public ListRow {
    Q_OBJECT
public:
    SidebarRow(const QString& title, const QString& symbol, QWidget* parent = nullptr);

    QString title() const { return m_title; }
    std::optional<TestStatus> status() const { return m_status; }
    void setStatus(std::optional<TestStatus> status);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    QString spokenName() const override;

protected:
    void resizeEvent(QResizeEvent*) override;
    void paintEvent(QPaintEvent*) override;

private:
    QString m_title;
    QString m_symbol;
    std::optional<TestStatus> m_status;
};

/// A column of rows with headers between them: one stop of the Tab key, arrows, Home and End choose. The
/// owner answers `chosen` by setting the current row.
class RowList final : public Column, public AccessibleTraits {
    Q_OBJECT
public:
    explicit RowList(const QString& name, QWidget* parent = nullptr);

    void addRow(ListRow* row, int gapAbove = 0);
    void addHeader(QWidget* header, int gapAbove = 0) { add(header, gapAbove); }
    const QList<ListRow*>& rows() const { return m_rows; }
    ListRow* current() const { return m_current; }
    /// Null clears the selection. Says nothing.
    void setCurrent(ListRow* row);

    QAccessible::Role spokenRole() const override { return QAccessible::List; }
    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void chosen(tessivo::ListRow* row);

private:
    void updateTabStops();
    QList<ListRow*> m_rows;
    ListRow* m_current = nullptr;
};

} // namespace tessivo

#include "app/controls/RowList.h"

#include <QKeyEvent>

#include <algorithm>

namespace tessivo {

RowList::RowList(const QString& name, QWidget* parent) : Column(parent) {
    setAccessibleName(name);
}

void RowList::addRow(SidebarRow* row, int gapAbove) {
    add(row, gapAbove);
    m_rows.append(row);
    row->installEventFilter(this);
    connect(row, &QAbstractButton::clicked, this, [this, row] { Q_EMIT chosen(row); });
    updateTabStops();
}

void RowList::setCurrent(SidebarRow* row) {
    // Also while a question has the keyboard.
    const bool hadFocus = m_rows.contains(window()->focusWidget());
    m_current = row;
    for (SidebarRow* each : std::as_const(m_rows)) {
        // An exclusive button can't be unchecked.
        each->setAutoExclusive(false);
        each->setChecked(each == row);
        each->setAutoExclusive(true);
    }
    updateTabStops();
    if (hadFocus && row) row->setFocus(Qt::OtherFocusReason);
}

void RowList::updateTabStops() {
    // The current row is the list's one stop; without one it is the first that shows.
    const auto first = std::ranges::find_if(m_rows, [](const SidebarRow* row) { return !row->isHidden(); });
    const SidebarRow* stop = m_current || first == m_rows.end() ? m_current : *first;
    for (SidebarRow* row : std::as_const(m_rows))
        row->setFocusPolicy(row == stop ? Qt::TabFocus : Qt::NoFocus);
}

/// The row to which a key leads where Qt's arrows of exclusive buttons don't.
SidebarRow* RowList::reached(SidebarRow* from, int key) const {
    const auto isShown = [](const SidebarRow* row) { return !row->isHidden(); };
    if (key == Qt::Key_Home) return *std::ranges::find_if(m_rows, isShown);
    if (key == Qt::Key_End) return *std::ranges::find_if(m_rows.rbegin(), m_rows.rend(), isShown);
    // They lead on from a chosen row alone.
    const bool arrow = key == Qt::Key_Up || key == Qt::Key_Down;
    return arrow && !from->isChecked() ? from : nullptr;
}

bool RowList::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent) updateTabStops();
    if (event->type() == QEvent::KeyPress)
        if (auto* row = reached(static_cast<SidebarRow*>(watched), static_cast<QKeyEvent*>(event)->key())) {
            row->setFocus(Qt::TabFocusReason);
            row->click();
            return true;
        }
    return Column::eventFilter(watched, event);
}

} // namespace tessivo

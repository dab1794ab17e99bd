#pragma once

#include "app/pages/history/HistoryRows.h"

#include <QListView>

namespace tessivo {

/// The list of saved reports. Draws only the rows to be seen, however many there are.
class HistoryList final : public QListView {
    Q_OBJECT

public:
    explicit HistoryList(QWidget* parent = nullptr);

    void setHistory(const std::vector<ConditionReport>& history);
    /// The selected report, or nothing.
    std::optional<Uuid> selection() const { return m_selection; }
    void setSelectedReport(const std::optional<Uuid>& id);
    const ConditionReport* selectedReport() const;

Q_SIGNALS:
    /// Another row is selected, or none, or the selected report was read anew.
    void selectionHasChanged();
    void deleteRequested(const tessivo::Uuid& id);

protected:
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void takeSelection();

    HistoryRows* m_rows;
    std::optional<Uuid> m_selection;
    bool m_updating = false;
};

} // namespace tessivo

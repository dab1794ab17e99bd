#pragma once

#include "kit/report/HistoryStore.h"

#include <QAbstractListModel>

namespace tessivo {

/// The reports of History as rows: a header for each Mac, and under it one row a report. The reports aren't
/// copied: they stay where they are until the next call of `setHistory`.
class HistoryRows final : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role { headerRole = Qt::UserRole, serialRole, tallyRole };

    using QAbstractListModel::QAbstractListModel;

    void setHistory(const std::vector<ConditionReport>& history);
    /// The report of a row; null for a header.
    const ConditionReport* report(int row) const;
    /// The first row with this report, or -1.
    int rowOf(const Uuid& id) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    struct Row {
        std::size_t place; ///< of the row's report; a header's is the first of its group
        bool isHeader;
    };

    const std::vector<ConditionReport>* m_history = nullptr;
    std::vector<Row> m_rows;
};

} // namespace tessivo

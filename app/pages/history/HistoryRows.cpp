#include "app/pages/history/HistoryRows.h"

#include "app/model/QtText.h"

namespace tessivo {

namespace {

/// How much of a long name is measured for its header.
constexpr qsizetype longestName = 500;

QString beginning(const std::string& text) {
    return qt(text).left(longestName);
}

QString serialWords(const MachineInfo& machine) {
    return machine.serial ? " · " + beginning(*machine.serial) : QString();
}

} // namespace

void HistoryRows::setHistory(const std::vector<ConditionReport>& history) {
    beginResetModel();
    m_history = &history;
    m_rows.clear();
    for (const HistoryStore::GroupPlaces& group : HistoryStore::groupedPlaces(history)) {
        m_rows.push_back({group.places.front(), true});
        for (const std::size_t place : group.places)
            m_rows.push_back({place, false});
    }
    endResetModel();
}

const ConditionReport* HistoryRows::report(int row) const {
    if (row < 0 || row >= int(m_rows.size()) || m_rows[std::size_t(row)].isHeader) return nullptr;
    return &m_history->at(m_rows[std::size_t(row)].place);
}

int HistoryRows::rowOf(const Uuid& id) const {
    for (int row = 0; row < int(m_rows.size()); ++row)
        if (const ConditionReport* found = report(row); found && found->id == id) return row;
    return -1;
}

int HistoryRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant HistoryRows::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= int(m_rows.size())) return {};
    const Row& row = m_rows[std::size_t(index.row())];
    if (role == headerRole) return row.isHeader;
    const ConditionReport& report = m_history->at(row.place);
    if (row.isHeader) {
        switch (role) {
        case Qt::DisplayRole:
            return beginning(report.machine.displayName());
        case serialRole:
            return serialWords(report.machine);
        case Qt::AccessibleTextRole:
            return QString(beginning(report.machine.displayName()) + serialWords(report.machine));
        default:
            return {};
        }
    }
    switch (role) {
    case Qt::DisplayRole:
        return qt(report.created.shortText());
    case tallyRole:
        return qt(report.countsText());
    case Qt::ToolTipRole:
        return qt(report.countsText()).toHtmlEscaped();
    case Qt::AccessibleTextRole:
        return qt(report.created.shortText() + ", " + report.countsText());
    default:
        return {};
    }
}

Qt::ItemFlags HistoryRows::flags(const QModelIndex& index) const {
    return report(index.row()) ? Qt::ItemIsSelectable | Qt::ItemIsEnabled : Qt::NoItemFlags;
}

} // namespace tessivo

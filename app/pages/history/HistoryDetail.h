#pragma once

#include "app/pages/PageContext.h"

#include <QWidget>
#include <optional>

namespace tessivo {

class ReportActions;
class SheetView;

/// One report of History on its sheet, with the buttons below it.
class HistoryDetail final : public QWidget {
    Q_OBJECT

public:
    explicit HistoryDetail(const PageContext& context, QWidget* parent = nullptr);

    /// Another report is shown from its beginning.
    void setReport(const ConditionReport& report);

Q_SIGNALS:
    void deleteRequested(const tessivo::Uuid& id);

private:
    std::optional<ConditionReport> m_report;
    SheetView* m_sheet;
};

} // namespace tessivo

#include "app/pages/history/HistoryDetail.h"

#include "app/controls/Button.h"
#include "app/controls/Metrics.h"
#include "app/controls/Panel.h"
#include "app/pages/report/ReportActions.h"
#include "app/pages/report/SheetView.h"

#include <QVBoxLayout>

namespace tessivo {

HistoryDetail::HistoryDetail(const PageContext& context, QWidget* parent)
    : QWidget(parent), m_sheet(new SheetView(this)) {
    auto* actions = new ReportActions(
        context, [this] { return m_report.value(); }, ReportActions::History::leave,
        ReportActions::Shape::grid);
    auto* remove = new Button(tr("Delete"), QStringLiteral("trash"), Button::Kind::destructive);
    actions->add(remove);
    connect(remove, &Button::clicked, this, [this] {
        if (m_report) Q_EMIT deleteRequested(m_report->id);
    });

    auto* bar = new QWidget;
    auto* barLayout = new QVBoxLayout(bar);
    barLayout->setContentsMargins(Space::xxl, Space::xxl, Space::xxl, Space::xxl);
    barLayout->addWidget(actions);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_sheet, 1);
    column->addWidget(new Divider);
    column->addWidget(bar);
}

void HistoryDetail::setReport(const ConditionReport& report) {
    if (!m_report || m_report->id != report.id) m_sheet->scrollToTop();
    m_report = report;
    m_sheet->setReport(report);
}

} // namespace tessivo

#include "app/pages/history/HistoryDetail.h"

#include "app/controls/Button.h"
#include "app/controls/Divider.h"
#include "app/controls/Panel.h"
#include "app/controls/TextLabel.h"
#include "app/layout/Column.h"
#include "app/look/Metrics.h"
#include "app/pages/compare/CompareSheet.h"
#include "app/pages/shared/ReportActions.h"
#include "app/pages/shared/SheetView.h"

#include <QVBoxLayout>
#include <algorithm>

namespace tessivo {

namespace {

constexpr int narrow = 380; ///< below this width the buttons scroll with the sheet
constexpr int messageLines = 2;

} // namespace

HistoryDetail::HistoryDetail(const PageContext& context, QWidget* parent)
    : QWidget(parent),
      m_context(context),
      m_sheet(new SheetView(this)),
      m_divider(new Divider),
      m_bar(new QWidget),
      m_actions(new ReportActions(
          context, [this] { return m_report.value(); }, ReportFlow::History::leave,
          ReportActions::Shape::grid)),
      m_message(new TextLabel({}, TextRole::callout, ColorRole::text2)) {
    auto* compare = new Button("Compare…", "arrow.left.arrow.right");
    m_actions->add(compare);
    connect(compare, &Button::clicked, this, &HistoryDetail::compare);
    auto* remove = new Button("Delete", "trash", Button::Kind::destructive);
    m_actions->add(remove);
    connect(remove, &Button::clicked, this, [this] {
        if (m_report) Q_EMIT deleteRequested(m_report->id);
    });

    m_message->setReservedLines(messageLines);
    auto* foot = new Column;
    foot->add(m_actions);
    foot->add(m_message, Space::s);
    m_foot = foot;

    m_bar->setAutoFillBackground(true);
    auto* barLayout = new QVBoxLayout(m_bar);
    barLayout->setContentsMargins(Space::xxl, Space::xxl, Space::xxl, Space::m);
    barLayout->addWidget(m_foot);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_sheet, 1);
    column->addWidget(m_divider);
    column->addWidget(m_bar);
}

HistoryDetail::~HistoryDetail() {
    delete m_compare;
}

void HistoryDetail::compare() {
    const auto& history = m_context.model.history();
    if (!m_report || m_compare || !std::ranges::count(history, m_report->id, &ConditionReport::id)) return;
    m_compare = new CompareSheet(m_context, *m_report, window());
    connect(m_compare, &Sheet::dismissed, m_compare, &QObject::deleteLater);
    m_compare->show();
}

void HistoryDetail::resizeEvent(QResizeEvent* event) {
    const bool inSheet = width() < narrow;
    if (inSheet == m_bar->isAncestorOf(m_foot)) {
        if (inSheet)
            m_sheet->add(m_foot, Space::xxl);
        else
            m_bar->layout()->addWidget(m_foot);
        m_divider->setVisible(!inSheet);
        m_bar->setVisible(!inSheet);
    }
    QWidget::resizeEvent(event);
}

void HistoryDetail::setMessage(const QString& message) {
    m_message->setText(message);
}

void HistoryDetail::setReport(const ConditionReport& report) {
    if (!m_report || m_report->id != report.id) m_sheet->scrollToTop();
    m_report = report;
    m_sheet->setReport(report);
}

} // namespace tessivo

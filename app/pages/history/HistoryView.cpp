#include "app/pages/history/HistoryView.h"

#include "app/controls/Button.h"
#include "app/controls/Divider.h"
#include "app/controls/Panel.h"
#include "app/controls/TextLabel.h"
#include "app/look/Metrics.h"
#include "app/model/QtText.h"
#include "app/pages/history/HistoryDetail.h"
#include "app/pages/history/HistoryList.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

namespace tessivo {

namespace {

constexpr int listWidth = 280;
constexpr int messageLines = 2;

/// A plain surface in the well's colour, behind the sheet or the words in its place.
class Well final : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter(this).fillRect(rect(), theme().color(ColorRole::well));
    }
};

TextLabel* emptyText(const QString& text) {
    auto* label = new TextLabel(text, TextRole::body, ColorRole::text2);
    label->setAlignment(Qt::AlignHCenter);
    return label;
}

} // namespace

HistoryView::HistoryView(const PageContext& context, QWidget* parent)
    : QWidget(parent),
      m_context(context),
      m_list(new HistoryList),
      m_empty(emptyText("Reports you save or print show up here.")),
      m_message(new TextLabel({}, TextRole::callout, ColorRole::text2)),
      m_nothingSelected(emptyText("No report selected")),
      m_detail(new HistoryDetail(context)) {
    auto* right = new Well;
    auto* rightLayout = new QVBoxLayout(right);
    rightLayout->setContentsMargins(0, 0, 0, 0);
    rightLayout->setSpacing(0);
    rightLayout->addWidget(m_detail, 1);
    rightLayout->addWidget(m_nothingSelected, 1, Qt::AlignVCenter);

    auto* split = new QHBoxLayout(this);
    split->setContentsMargins(0, 0, 0, 0);
    split->setSpacing(0);
    split->addWidget(makeListPane());
    auto* divider = new Divider;
    divider->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    split->addWidget(divider);
    split->addWidget(right, 1);

    connect(m_list, &HistoryList::selectionHasChanged, this, &HistoryView::showSelection);
    connect(m_list, &HistoryList::deleteRequested, this, &HistoryView::remove);
    connect(m_detail, &HistoryDetail::deleteRequested, this, &HistoryView::remove);
    connect(&m_context.model, &AppModel::historyChanged, this, &HistoryView::showHistory);
    connect(&m_context.model, &AppModel::messageChanged, this, &HistoryView::showMessage);
    showHistory();
    showSelection();
    showMessage();
}

QWidget* HistoryView::makeListPane() {
    auto* pane = new QWidget;
    pane->setFixedWidth(listWidth);
    auto* add = new Button("Add Report Files…", "plus");
    m_message->setReservedLines(messageLines);
    auto* foot = new QVBoxLayout;
    foot->setContentsMargins(Space::m, Space::m, Space::m, Space::m);
    foot->setSpacing(Space::s);
    foot->addWidget(add);
    foot->addWidget(m_message);
    auto* column = new QVBoxLayout(pane);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_list, 1);
    column->addWidget(m_empty, 1, Qt::AlignVCenter);
    column->addWidget(new Divider);
    column->addLayout(foot);
    connect(add, &Button::clicked, this, [this] {
        const auto files = m_context.dialogs.openReportFiles(
            this, "Choose report files saved with Save Report File on another Mac.");
        m_adding = true;
        if (!files.empty()) m_context.model.addReportFiles(files);
        m_adding = false;
    });
    return pane;
}

void HistoryView::showHistory() {
    const auto& history = m_context.model.history();
    m_list->setHistory(history);
    m_list->setVisible(!history.empty());
    m_empty->setVisible(history.empty());
}

void HistoryView::showMessage() {
    const QString message = qt(m_context.model.message().value_or(""));
    const bool ofReport = !m_adding && m_detail->isVisible();
    m_message->setText(ofReport ? QString() : message);
    m_detail->setMessage(ofReport ? message : QString());
}

void HistoryView::showSelection() {
    const ConditionReport* report = m_list->selectedReport();
    if (report) m_detail->setReport(*report);
    m_detail->setVisible(report);
    m_nothingSelected->setVisible(!report);
}

void HistoryView::remove(const Uuid& id) {
    if (m_list->selection() == id) m_list->setSelectedReport(std::nullopt);
    m_context.model.deleteFromHistory(id);
}

} // namespace tessivo

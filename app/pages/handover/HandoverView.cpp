#include "app/pages/handover/HandoverView.h"

#include "app/controls/Divider.h"
#include "app/controls/LinkLabel.h"
#include "app/controls/Panel.h"
#include "app/controls/SectionHeading.h"
#include "app/controls/StatusBadge.h"
#include "app/controls/SymbolView.h"
#include "app/controls/TextLabel.h"
#include "app/model/QtText.h"
#include "app/pages/frame/PageHeader.h"
#include "app/pages/shared/ActivationLockPanel.h"
#include "app/pages/shared/ReportActions.h"

#include <QHBoxLayout>

namespace tessivo {

namespace {

constexpr int sectionGap = 24;
constexpr int underHeading = 3;
constexpr int actionsWidth = 280;

/// With a divider that begins under the symbols of the rows.
void addRow(Panel& panel, HandoverRow* row, HandoverRow::Kind kind) {
    panel.addRow(row, HandoverRow::symbolLeft(kind), Space::block);
}

} // namespace

HandoverView::HandoverView(const PageContext& context, QWidget* parent)
    : ScrollColumn(parent, Width::columnNarrow), m_context(context) {
    addHead();
    addChecklist();
    addReport();
    addErase();
    addBuyer();
    connect(&context.model, &AppModel::stateChanged, this, &HandoverView::follow);
    connect(&context.model, &AppModel::messageChanged, this, &HandoverView::showMessage);
    follow();
    showMessage();
}

void HandoverView::addText(const QString& words, int gapAbove) {
    auto* label = new TextLabel(words, TextRole::body, ColorRole::text2);
    add(label, gapAbove);
    label->setMaximumWidth(theme().scaled(PageHead::howWidth));
}

void HandoverView::addHead() {
    add(new PageHeader(qt(title(Page::handover)), qt(symbol(Page::handover))));
    addText("Apple's steps for handing this Mac to someone else, so none of your data or your Activation "
            "Lock goes with it. Tick each one as you do it. " +
                qt(Handover::closingLine(m_context.model.state().machine)) +
                " The report lists them as ticked by you.",
            PageHead::howGap);
    const HelpLink& guide = Handover::guide();
    auto* link = new LinkLabel(qt(guide.title));
    connect(link, &LinkLabel::clicked, this,
            [this, &guide] { m_context.model.platform().desktop().openURL(guide.url); });
    add(link, Space::xs, Qt::AlignLeft);
}

void HandoverView::addChecklist() {
    add(new SectionHeading("1. Before you save the report"), sectionGap);
    auto* panel = new Panel(Panel::Kind::list);
    for (const HandoverStep step : Handover::steps(m_context.model.state().machine)) {
        if (Handover::comesAfterReport(step)) continue;
        auto* row = new HandoverRow(step, HandoverRow::Kind::ticked, m_context);
        connect(row, &HandoverRow::ticked, &m_context.model, &AppModel::setHandover);
        if (step == HandoverStep::findMy) row->add(new ActivationLockPanel(m_context.model), Space::l);
        addRow(*panel, row, HandoverRow::Kind::ticked);
        m_ticked.push_back(row);
    }
    add(panel, Space::heading);
}

void HandoverView::addReport() {
    add(new SectionHeading("2. Save the report"), sectionGap);
    addText("The erase removes Tessivo and this report from the Mac, so save or print it now. Ticks you "
            "change after saving aren't in the saved copy.",
            underHeading);
    auto* actions = new ReportActions(
        m_context, [this] { return m_context.model.makeReport(); }, ReportFlow::History::keep,
        ReportActions::Shape::column);
    actions->setFixedWidth(actionsWidth); // larger text wraps, and leaves room beside it
    // Beside the buttons, where nothing moves when it comes.
    m_message = new TextLabel({}, TextRole::callout, ColorRole::text2);
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Space::block);
    layout->addWidget(actions);
    layout->addWidget(m_message, 1, Qt::AlignVCenter);
    add(row, Space::l);
}

void HandoverView::addErase() {
    add(new SectionHeading("3. Last: erase"), sectionGap);
    auto* panel = new Panel(Panel::Kind::list);
    for (const HandoverStep step : Handover::steps(m_context.model.state().machine))
        if (Handover::comesAfterReport(step))
            addRow(*panel, new HandoverRow(step, HandoverRow::Kind::plain, m_context),
                   HandoverRow::Kind::plain);
    add(panel, Space::heading);
    addText("These erase Tessivo and this checklist too, so there's nothing to tick. Tessivo never erases "
            "or signs out anything itself.",
            Space::l);
}

void HandoverView::addBuyer() {
    auto* heading = new TextLabel("If you're the buyer", TextRole::headline);
    heading->setHeading(true);
    auto* words = new Column;
    words->add(heading);
    words->add(new TextLabel(qt(Handover::buyerAdvice()), TextRole::body, ColorRole::text2), 2);
    auto* content = new QWidget;
    auto* row = new QHBoxLayout(content);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Space::l);
    row->addWidget(new SymbolView("person.fill.questionmark", SymbolSize::row, ColorRole::accent), 0,
                   Qt::AlignTop);
    row->addWidget(words, 1);
    auto* panel = new Panel(Panel::Kind::card);
    panel->add(content);
    add(panel, Space::xxl);
}

void HandoverView::follow() {
    const auto& checklist = m_context.model.state().handover;
    for (HandoverRow* row : m_ticked)
        row->setTicked(checklist && checklist->ticked.contains(row->step()));
}

void HandoverView::showMessage() {
    m_message->setText(qt(m_context.model.message().value_or("")));
}

} // namespace tessivo

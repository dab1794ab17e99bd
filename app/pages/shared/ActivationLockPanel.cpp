#include "app/pages/shared/ActivationLockPanel.h"

#include "app/controls/SegmentedPicker.h"
#include "app/controls/StatusBadge.h"
#include "app/controls/SymbolView.h"
#include "app/controls/TextLabel.h"
#include "app/layout/SplitRow.h"
#include "app/layout/WrapRow.h"
#include "kit/rules/RuleTexts.h"

#include <QHBoxLayout>

namespace tessivo {

namespace {

constexpr int padding = 14;
constexpr int underHeadline = 4;

} // namespace

ActivationLockPanel::ActivationLockPanel(AppModel& model, QWidget* parent)
    : QWidget(parent), m_model(model), m_badge(new StatusBadge) {
    auto* heading = new TextLabel("Check that Activation Lock is off", TextRole::headline);
    heading->setHeading(true);
    auto* head = new QWidget;
    auto* row = new QHBoxLayout(head);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Space::s);
    row->addWidget(new SymbolView("lock.open", SymbolSize::sidebar, ColorRole::accent));
    row->addWidget(heading, 1);

    const QString shows = "System Information shows";
    m_answer = new SegmentedPicker(shows, {"Not checked yet", "Disabled", "Enabled"});
    connect(m_answer, &SegmentedPicker::chosen, this, [this](int index) {
        m_model.change([index](SessionState& state) {
            state.activationLock = allCases<ActivationLockAnswer>().at(size_t(index));
        });
    });
    auto* answer = new WrapRow(nullptr, Space::l);
    answer->add(new TextLabel(shows, TextRole::body, ColorRole::text2));
    answer->add(m_answer);

    auto* panel = new Panel(Panel::Kind::inner);
    panel->setPadding(padding, Space::l);
    panel->add(new SplitRow(head, m_badge));
    panel->add(
        new TextLabel(QString::fromUtf8(Rules::activationLockHowTo), TextRole::callout, ColorRole::text2),
        underHeadline);
    panel->add(answer, Space::m);
    (new ColumnLayout(this))->add(panel);
    connect(&m_model, &AppModel::stateChanged, this, &ActivationLockPanel::follow);
    follow();
}

void ActivationLockPanel::follow() {
    m_badge->setStatus(m_model.result(TestID::activationLock).status);
    m_answer->setCurrent(int(m_model.state().activationLock));
}

} // namespace tessivo

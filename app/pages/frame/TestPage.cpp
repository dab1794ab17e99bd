#include "app/pages/frame/TestPage.h"

#include "app/controls/Divider.h"
#include "app/controls/Panel.h"
#include "app/controls/StatusBadge.h"
#include "app/controls/SymbolView.h"
#include "app/controls/TextLabel.h"
#include "app/layout/SplitLayout.h"
#include "app/model/AppModel.h"
#include "app/model/QtText.h"
#include "app/pages/frame/OverrideControls.h"
#include "app/pages/frame/PageHeader.h"

namespace tessivo {
TestPage::TestPage(AppModel& model, TestID test, const QString& how, QWidget* content, QWidget* parent)
    : ScrollColumn(parent),
      m_model(model),
      m_test(test),
      m_badge(new StatusBadge),
      m_summary(new TextLabel({}, TextRole::resultSummary)),
      m_overrides(new OverrideControls(test)) {
    add(new PageHeader(qt(title(test)), qt(symbol(test)), m_badge));
    add(m_summary, PageHead::summaryGap);
    auto* instructions = new TextLabel(how, TextRole::body, ColorRole::text2);
    add(instructions, PageHead::howGap);
    instructions->setMaximumWidth(theme().scaled(PageHead::howWidth));
    if (content) add(content, PageHead::contentGap);
    add(new Divider, PageHead::dividerGap);
    add(m_overrides, PageHead::overrideGap);

    connect(&model, &AppModel::stateChanged, this, [this] {
        if (isVisible()) follow();
    });
    connect(m_overrides, &OverrideControls::changed, this, &TestPage::writeOverride);
    follow();
}

void TestPage::showEvent(QShowEvent* event) {
    follow();
    ScrollColumn::showEvent(event);
}

void TestPage::follow() {
    const TestResult result = m_model.result(m_test);
    m_badge->setStatus(result.status);
    m_summary->setText(qt(result.summary));
    const auto& overrides = m_model.state().overrides;
    const auto found = overrides.find(m_test);
    m_overrides->setOverride(found == overrides.end() ? std::nullopt : std::optional(found->second));
}

void TestPage::writeOverride(const std::optional<UserOverride>& override) {
    m_model.change([&](SessionState& state) {
        if (override)
            state.overrides[m_test] = *override;
        else
            state.overrides.erase(m_test);
    });
}

} // namespace tessivo

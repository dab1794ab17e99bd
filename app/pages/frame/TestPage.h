#pragma once

#include "app/layout/ScrollColumn.h"
#include "kit/session/SessionState.h"

namespace tessivo {

class AppModel;
class OverrideControls;
class StatusBadge;
class TextLabel;

/// The frame of every test's page: header with badge, summary, instructions, the page's own content, and the
/// override controls. Follows the model while it is shown, and changes only what changed.
class TestPage final : public ScrollColumn {
    Q_OBJECT
public:
    TestPage(AppModel& model, TestID test, const QString& how, QWidget* content, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void follow();
    void writeOverride(const std::optional<UserOverride>& override);

    AppModel& m_model;
    TestID m_test;
    StatusBadge* m_badge;
    TextLabel* m_summary;
    OverrideControls* m_overrides;
};

} // namespace tessivo

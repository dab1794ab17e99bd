#pragma once

#include "app/controls/ClickControl.h"
#include "kit/vocabulary/TestStatus.h"

#include <optional>

namespace tessivo {

/// A page in the sidebar: symbol, title, status glyph. Checked while its page is shown; of the rows of one
/// list one at most is. Its accessible name is the title and the status word.
class SidebarRow final : public ClickControl {
    Q_OBJECT
public:
    SidebarRow(const QString& title, const QString& symbol, QWidget* parent = nullptr);

    QString title() const { return text(); }
    std::optional<TestStatus> status() const { return m_status; }
    void setStatus(std::optional<TestStatus> status);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    QAccessible::Role spokenRole() const override { return QAccessible::ListItem; }
    QString spokenName() const override;
    void addSpokenState(QAccessible::State& state) const override;
    QWidget* focusShapeWidget() override { return nullptr; }

protected:
    void resizeEvent(QResizeEvent*) override;
    void paintEvent(QPaintEvent*) override;

private:
    void paintGround(QPainter& painter) const;

    QString m_symbol;
    std::optional<TestStatus> m_status;
};

} // namespace tessivo

#pragma once

#include "app/pages/PageContext.h"

#include <QPointer>
#include <QWidget>
#include <optional>

namespace tessivo {

class CompareSheet;
class Divider;
class ReportActions;
class SheetView;
class TextLabel;

/// One report of History on its sheet, with the buttons in a bar below it, or under the sheet where there is
/// no room for a bar.
class HistoryDetail final : public QWidget {
    Q_OBJECT

public:
    explicit HistoryDetail(const PageContext& context, QWidget* parent = nullptr);
    ~HistoryDetail() override;

    /// Another report is shown from its beginning.
    void setReport(const ConditionReport& report);
    /// The line under the buttons: what came of one of them.
    void setMessage(const QString& message);

Q_SIGNALS:
    void deleteRequested(const tessivo::Uuid& id);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void compare();

    PageContext m_context;
    std::optional<ConditionReport> m_report;
    SheetView* m_sheet;
    Divider* m_divider;
    QWidget* m_bar;
    QWidget* m_foot; ///< the buttons and the message
    ReportActions* m_actions;
    TextLabel* m_message;
    QPointer<CompareSheet> m_compare; ///< it stands in the window
};

} // namespace tessivo

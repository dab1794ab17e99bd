#pragma once

#include "app/pages/PageContext.h"

#include <QPointer>
#include <QWidget>

namespace tessivo {

class Divider;
class GrowingTextField;
class ScrollColumn;
class SheetView;
class TextLabel;
class WriteUpSheet;

/// The report as it would print, and everything that can be done with it. The report is made anew when the
/// page comes into sight and when the session or the notes change, at most once a frame however fast someone
/// types; until then every action takes the one that is shown.
class ReportPage final : public QWidget {
    Q_OBJECT

public:
    explicit ReportPage(const PageContext& context, QWidget* parent = nullptr);
    ~ReportPage() override;

    /// The one in the preview, brought up to date with a change whose frame has not come yet.
    const ConditionReport& shownReport();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void makeControls();
    void follow();
    void rebuild();
    void showMessage();
    void showWriteUp();

    PageContext m_context;
    std::unique_ptr<Scheduled> m_nextRebuild;
    /// The one in the preview, which is also what is copied, saved and printed; absent until the page is
    /// shown.
    std::optional<ConditionReport> m_report;
    SheetView* m_sheet;
    Divider* m_divider;
    ScrollColumn* m_controls;
    TextLabel* m_tally;
    TextLabel* m_unfinished;
    GrowingTextField* m_notes;
    TextLabel* m_message;
    QPointer<WriteUpSheet> m_writeUp;
};

} // namespace tessivo

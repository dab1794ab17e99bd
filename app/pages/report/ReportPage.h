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

/// The report as it would print, and everything that can be done with it. It follows the session and the
/// notes, made anew at most once a frame however fast someone types.
class ReportPage final : public QWidget {
    Q_OBJECT

public:
    explicit ReportPage(const PageContext& context, QWidget* parent = nullptr);
    ~ReportPage() override;

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

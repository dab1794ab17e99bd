#pragma once

#include "app/layout/ScrollColumn.h"
#include "app/pages/handover/HandoverRow.h"

namespace tessivo {

class TextLabel;

/// What to do before the Mac changes hands: the steps to tick, the report to save, then the erase, which
/// the person does elsewhere.
class HandoverView final : public ScrollColumn {
    Q_OBJECT

public:
    explicit HandoverView(const PageContext& context, QWidget* parent = nullptr);

private:
    void addHead();
    void addChecklist();
    void addReport();
    void addErase();
    void addBuyer();
    void addText(const QString& text, int gapAbove);
    void follow();
    void showMessage();

    PageContext m_context;
    std::vector<HandoverRow*> m_ticked;
    TextLabel* m_message = nullptr;
};

} // namespace tessivo

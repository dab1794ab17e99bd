#pragma once

#include "app/pages/PageContext.h"
#include "kit/support/Uuid.h"

#include <QWidget>

namespace tessivo {

class HistoryList;
class HistoryDetail;
class TextLabel;

/// The saved reports, of this Mac and of others, in a list by Mac; the selected one as it prints, with what
/// can be done with it.
class HistoryView final : public QWidget {
    Q_OBJECT

public:
    explicit HistoryView(const PageContext& context, QWidget* parent = nullptr);

private:
    QWidget* makeListPane();
    void showHistory();
    void showSelection();
    /// Near the buttons that it speaks of: below the list, or below the report.
    void showMessage();
    void remove(const Uuid& id);

    PageContext m_context;
    HistoryList* m_list;
    TextLabel* m_empty;
    TextLabel* m_message;
    TextLabel* m_nothingSelected;
    HistoryDetail* m_detail;
    bool m_adding = false; ///< report files, just now
};

} // namespace tessivo

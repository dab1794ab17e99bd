#pragma once

#include "app/dialogs/Sheet.h"
#include "app/pages/PageContext.h"
#include "app/pages/compare/ReportChoices.h"
#include "kit/report/ReportComparison.h"

class QLineEdit;

namespace tessivo {

class Button;
class Column;
class ComparisonView;
class Picker;
class SymbolView;
class TextLabel;

/// What differs between a report of History and this Mac as it is now, or another report. "This Mac now" is
/// a report of the present session, made after battery and device management have been read again.
class CompareSheet final : public Sheet {
    Q_OBJECT

public:
    /// Covers the window. The report is one of History; the context outlives the sheet.
    CompareSheet(const PageContext& context, const ConditionReport& report, QWidget* window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* makeHead();
    QWidget* makeFoot();
    QWidget* makeVerdict();
    void addPicker(Column& head, Picker* picker, int gapAbove);
    void offerOthers();
    void search(const QString& words);
    void compare();
    void readThisMac();
    void showReading();
    void showComparison(ReportComparison comparison, bool withNow);
    void copy();

    PageContext m_context;
    ReportChoices m_choices;
    std::vector<std::size_t> m_reports; ///< of the first picker
    /// Of the second one; nothing stands for this Mac now.
    std::vector<std::optional<std::size_t>> m_others;
    std::optional<ConditionReport> m_now;
    Date m_nowStarted;        ///< when the session began that `m_now` was made from
    bool m_isWaiting = false; ///< for the reading of this Mac
    std::optional<ReportComparison> m_comparison;

    Picker* m_report;
    Picker* m_other;
    QLineEdit* m_search;
    QWidget* m_searchRow = nullptr;
    TextLabel* m_found;
    TextLabel* m_dates;
    SymbolView* m_symbol;
    TextLabel* m_verdict;
    ComparisonView* m_items;
    Button* m_copy;
};

} // namespace tessivo

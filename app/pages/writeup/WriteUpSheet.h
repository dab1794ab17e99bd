#pragma once

#include "app/dialogs/Sheet.h"
#include "app/pages/PageContext.h"
#include "kit/listing/WordingPolish.h"

namespace tessivo {

class Button;
class Checkbox;
class Column;
class ListingText;
class OutcomeLine;
class SegmentedPicker;
class TextLabel;

/// The listing description made from one report, and its rewording. All its words are in the language that
/// was current when it was made. Closing it clears the model's `showWriteUp`; an answer of the wording model
/// that comes later is dropped.
class WriteUpSheet final : public Sheet {
    Q_OBJECT

public:
    static constexpr std::size_t mostIssues = 5;

    /// Covers the window. The context outlives it.
    WriteUpSheet(const PageContext& context, ConditionReport report, QWidget* window);
    ~WriteUpSheet() override;

protected:
    void dismiss() override;

private:
    QWidget* makeHead();
    QWidget* makePolishRow();
    QWidget* makeFoot();
    void makeWriteUp();
    void forgetPolish();
    void polish();
    void conclude(const PolishResult& result);
    void refresh();
    std::string shownText() const;

    PageContext m_context;
    ConditionReport m_report;
    std::string m_language;
    ListingWriteUp m_writeUp;
    std::optional<std::string> m_polished;
    bool m_showPolished = false;
    bool m_polishing = false;
    std::optional<std::string> m_outcome;
    std::vector<GuardIssue> m_issues;
    int m_round = 0; ///< of the write-ups; tells whether a rewording that comes back belongs to this one

    QWidget* m_versionRow = nullptr;
    SegmentedPicker* m_version = nullptr;
    ListingText* m_text = nullptr;
    Checkbox* m_serial = nullptr;
    Button* m_polishButton = nullptr;
    QWidget* m_busy = nullptr;
    OutcomeLine* m_outcomeLine = nullptr;
    std::vector<TextLabel*> m_issueLabels;
};

} // namespace tessivo

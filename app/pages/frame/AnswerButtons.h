#pragma once

#include "app/look/Accessible.h"
#include "app/look/Theme.h"
#include "kit/vocabulary/ManualAnswer.h"

#include <QString>
#include <QWidget>
#include <optional>

namespace tessivo {

class AnswerButton;
class WrapLayout;

/// A person's verdict: two or three buttons, the chosen one tinted. Clicking the chosen one takes the answer
/// back. It shows what it was last set to; the owner writes the answer into the model and sets it again.
class AnswerButtons final : public QWidget, public AccessibleTraits {
    Q_OBJECT
public:
    explicit AnswerButtons(const QString& works = "Works", const QString& problem = "Problem",
                           const std::optional<QString>& notPresent = std::nullopt,
                           QWidget* parent = nullptr);

    ManualAnswer answer() const { return m_answer; }
    void setAnswer(ManualAnswer answer);
    /// What is asked, for a screen reader: "Touch ID or power key".
    void setQuestion(const QString& question);
    QAccessible::Role spokenRole() const override;

Q_SIGNALS:
    /// A button was clicked: its answer, or `unanswered` for the one already chosen.
    void answered(tessivo::ManualAnswer answer);

private:
    void addButton(ManualAnswer answer, const QString& text, const QString& symbol, ColorRole tint);

    WrapLayout* m_layout;
    ManualAnswer m_answer = ManualAnswer::unanswered;
    std::vector<AnswerButton*> m_buttons;
};

} // namespace tessivo

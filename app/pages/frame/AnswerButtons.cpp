#include "app/pages/frame/AnswerButtons.h"

#include "app/controls/Button.h"
#include "app/look/Metrics.h"

namespace tessivo {

class AnswerButton final : public Button {
public:
    AnswerButton(ManualAnswer answer, const QString& text, const QString& symbol, ColorRole words,
                 QWidget* parent)
        : Button(text, symbol, Kind::bordered, parent), m_answer(answer), m_words(words) {
        setHeavyWidth(true);
    }

    ManualAnswer answer() const { return m_answer; }

    void setChosen(bool chosen) {
        if (chosen == m_chosen) return;
        m_chosen = chosen;
        setTint(chosen ? std::optional(m_words) : std::nullopt,
                chosen ? std::optional(m_words) : std::nullopt);
        announceChoice(this);
    }

    void addSpokenState(QAccessible::State& state) const override {
        state.checkable = true;
        state.checked = m_chosen;
        state.selectable = true;
        state.selected = m_chosen;
    }

private:
    ManualAnswer m_answer;
    ColorRole m_words;
    bool m_chosen = false;
};

AnswerButtons::AnswerButtons(const QString& works, const QString& problem,
                             const std::optional<QString>& notPresent, QWidget* parent)
    : QWidget(parent), m_layout(new WrapLayout(this, Space::button, Space::button)) {
    addButton(ManualAnswer::works, works, QStringLiteral("checkmark"), ColorRole::green);
    addButton(ManualAnswer::problem, problem, QStringLiteral("xmark"), ColorRole::red);
    if (notPresent)
        addButton(ManualAnswer::notPresent, *notPresent, QStringLiteral("minus"), ColorRole::gray);
}

void AnswerButtons::addButton(ManualAnswer answer, const QString& text, const QString& symbol,
                              ColorRole words) {
    auto* button = new AnswerButton(answer, text, symbol, words, this);
    connect(button, &Button::clicked, this,
            [this, answer] { Q_EMIT answered(answer == m_answer ? ManualAnswer::unanswered : answer); });
    m_layout->add(button);
    m_buttons.push_back(button);
}

void AnswerButtons::setAnswer(ManualAnswer answer) {
    m_answer = answer;
    for (AnswerButton* button : m_buttons)
        button->setChosen(button->answer() == answer);
}

void AnswerButtons::setQuestion(const QString& question) {
    setAccessibleName(question);
    for (AnswerButton* button : m_buttons)
        button->setAccessibleDescription(question);
}

QAccessible::Role AnswerButtons::spokenRole() const {
    return QAccessible::Grouping;
}

} // namespace tessivo

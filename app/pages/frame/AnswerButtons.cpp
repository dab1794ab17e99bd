#include "app/pages/frame/AnswerButtons.h"

#include "app/controls/Button.h"
#include "app/layout/WrapLayout.h"
#include "app/look/Metrics.h"

namespace tessivo {

/// Checked by its owner alone. (An exclusive button of Qt's couldn't be unchecked by a click.)
class AnswerButton final : public Button {
public:
    AnswerButton(ManualAnswer answer, const QString& text, const QString& symbol, ColorRole tint,
                 QWidget* parent)
        : Button(text, symbol, Kind::bordered, parent), m_answer(answer) {
        setCheckedTint(tint);
    }

    ManualAnswer answer() const { return m_answer; }

    void addSpokenState(QAccessible::State& state) const override {
        state.selectable = true;
        state.selected = isChecked();
    }

protected:
    void nextCheckState() override {}

private:
    ManualAnswer m_answer;
};

AnswerButtons::AnswerButtons(const QString& works, const QString& problem,
                             const std::optional<QString>& notPresent, QWidget* parent)
    : QWidget(parent), m_layout(new WrapLayout(this, Space::button, Space::button)) {
    addButton(ManualAnswer::works, works, "checkmark", ColorRole::green);
    addButton(ManualAnswer::problem, problem, "xmark", ColorRole::red);
    if (notPresent) addButton(ManualAnswer::notPresent, *notPresent, "minus", ColorRole::gray);
}

void AnswerButtons::addButton(ManualAnswer answer, const QString& text, const QString& symbol,
                              ColorRole tint) {
    auto* button = new AnswerButton(answer, text, symbol, tint, this);
    connect(button, &Button::clicked, this,
            [this, answer] { Q_EMIT answered(answer == m_answer ? ManualAnswer::unanswered : answer); });
    m_layout->add(button);
    m_buttons.push_back(button);
}

void AnswerButtons::setAnswer(ManualAnswer answer) {
    m_answer = answer;
    for (AnswerButton* button : m_buttons)
        button->setChecked(button->answer() == answer);
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

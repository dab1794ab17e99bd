#include "app/pages/tones/ToneBlock.h"

#include "app/controls/Button.h"
#include "app/controls/TextLabel.h"
#include "app/layout/WrapRow.h"
#include "app/look/Metrics.h"
#include "app/pages/frame/AnswerButtons.h"

namespace tessivo {

ToneBlock::ToneBlock(const QString& title, const QString& works, const QString& problem, QWidget* parent)
    : Panel(Kind::card, parent),
      m_play(new Button("Play Tone", "play.fill", Button::Kind::prominent)),
      m_answer(new AnswerButtons(works, problem)) {
    setAccessibleName(title);
    auto* heading = new TextLabel(title, TextRole::headline);
    heading->setHeading(true);
    add(heading);

    auto* controls = new WrapRow(nullptr, Space::buttonWide, Space::button);
    controls->add(m_play);
    m_answer->setQuestion(title);
    controls->add(m_answer);
    auto* clear = new Button("Clear");
    clear->setAccessibleDescription(title);
    controls->add(clear, {}, Qt::AlignRight);
    add(controls, Space::heading);

    connect(m_play, &Button::clicked, this, &ToneBlock::play);
    connect(m_answer, &AnswerButtons::answered, this, &ToneBlock::answered);
    connect(clear, &Button::clicked, this, [this] { Q_EMIT answered(ManualAnswer::unanswered); });
}

void ToneBlock::setAnswer(ManualAnswer answer) {
    m_answer->setAnswer(answer);
}

void ToneBlock::setPlayHint(const QString& hint) {
    m_play->setAccessibleDescription(hint);
}

void ToneBlock::setPlayable(bool playable, const QString& whyNot) {
    m_play->setEnabled(playable);
    m_play->setToolTip(playable ? QString() : whyNot);
}

} // namespace tessivo

#include "app/pages/sound/SpeakersView.h"

#include "app/controls/Metrics.h"
#include "app/controls/TextLabel.h"
#include "app/pages/sound/ToneBlock.h"
#include "app/readers/Readers.h"
#include "kit/rules/RuleTexts.h"

#include <QHideEvent>
#include <QShowEvent>

namespace tessivo {

namespace {

constexpr auto pollInterval = std::chrono::seconds(1);

} // namespace

const char* const SpeakersView::how =
    "Turn the volume up to about half. Play each side and listen: the tone should come only from that side, "
    "clear, with no buzz or rattle. Unplug headphones first.";

SpeakersView::SpeakersView(const PageContext& context, QWidget* parent)
    : Column(parent),
      m_model(context.model),
      m_output(new TextLabel({}, TextRole::body, ColorRole::text2)),
      m_oneChannel(new TextLabel(QStringLiteral("This output has one channel (like a Mac mini's own "
                                                "speaker), so there's one tone."),
                                 TextRole::body, ColorRole::text2)) {
    m_output->setMaximumLines(1);
    add(m_output);
    m_left = addBlock(Rules::leftSpeaker, &SpeakerTest::left, true, false);
    m_right = addBlock(Rules::rightSpeaker, &SpeakerTest::right, false, true);
    m_both = addBlock(Rules::oneSpeaker, &SpeakerTest::both, true, true);
    add(m_oneChannel, Space::l);
    connect(&m_model, &AppModel::stateChanged, this, &SpeakersView::follow);
    follow();
}

ToneBlock* SpeakersView::addBlock(const char* title, ManualAnswer SpeakerTest::*answer, bool left,
                                  bool right) {
    auto* block = new ToneBlock(QString::fromUtf8(title), QStringLiteral("Heard it clearly?"),
                                QStringLiteral("Missing or distorted"));
    block->setPlayHint(QString::fromUtf8(title));
    connect(block, &ToneBlock::play, this, [=, this] { play(left, right); });
    connect(block, &ToneBlock::answered, this, [=, this](ManualAnswer given) {
        m_model.change([=](SessionState& state) { state.speakers.*answer = given; });
    });
    add(block, Space::block);
    return block;
}

void SpeakersView::showEvent(QShowEvent* event) {
    Column::showEvent(event);
    if (event->spontaneous()) return;
    m_player.emplace(m_model.platform().toneOutput());
    m_poll = std::make_unique<Poll>(m_model.platform().scheduler(), pollInterval, [this] { readOutput(); });
}

void SpeakersView::hideEvent(QHideEvent* event) {
    // A window that is only minimised keeps its page open.
    if (!event->spontaneous()) {
        m_poll.reset();
        m_player.reset();
    }
    Column::hideEvent(event);
}

void SpeakersView::play(bool left, bool right) {
    if (!m_player) return;
    m_player->play(left, right);
    // The output may be another one than when the page came up: what is told must fit what was heard.
    readOutput();
}

void SpeakersView::readOutput() {
    SpeakerTest test = m_model.state().speakers;
    if (const std::uint32_t channels = m_player->outputChannels()) test.channels = channels;
    test.outputName = readDefaultOutputName(m_model.platform().audioObjects());
    if (test != m_model.state().speakers)
        m_model.change([&](SessionState& state) { state.speakers = std::move(test); });
}

void SpeakersView::follow() {
    const SpeakerTest& test = m_model.state().speakers;
    const bool single = test.channels < 2;
    m_output->setVisible(test.outputName.has_value());
    m_output->setText(QStringLiteral("Playing through: ") +
                      QString::fromStdString(test.outputName.value_or(std::string())));
    m_left->setVisible(!single);
    m_right->setVisible(!single);
    m_both->setVisible(single);
    m_oneChannel->setVisible(single);
    m_left->setAnswer(test.left);
    m_right->setAnswer(test.right);
    m_both->setAnswer(test.both);
}

} // namespace tessivo

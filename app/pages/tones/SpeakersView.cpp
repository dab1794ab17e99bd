#include "app/pages/tones/SpeakersView.h"

#include "app/controls/TextLabel.h"
#include "app/look/Metrics.h"
#include "app/model/QtText.h"
#include "app/pages/tones/ToneBlock.h"
#include "app/readers/Readers.h"
#include "kit/rules/RuleTexts.h"

#include <algorithm>

namespace tessivo {

namespace {

constexpr auto retryInterval = std::chrono::seconds(1);

} // namespace

const char* const SpeakersView::how =
    "Turn the volume up to about half. Play each side and listen: the tone should come only from that side, "
    "clear, with no buzz or rattle. Unplug headphones first.";

SpeakersView::SpeakersView(const PageContext& context, QWidget* parent)
    : LiveContent(parent),
      m_model(context.model),
      m_sides({{{Rules::leftSpeaker, &SpeakerTest::left, true, false},
                {Rules::rightSpeaker, &SpeakerTest::right, false, true},
                {Rules::oneSpeaker, &SpeakerTest::both, true, true}}}),
      m_output(new TextLabel({}, TextRole::body, ColorRole::text2)),
      m_elsewhere(new TextLabel({}, TextRole::body, ColorRole::text2)),
      m_oneChannel(new TextLabel("This output has one channel (like a Mac mini's own "
                                 "speaker), so there's one tone.",
                                 TextRole::body, ColorRole::text2)) {
    m_output->setMaximumLines(1);
    add(m_output);
    for (Side& side : m_sides)
        add(side);
    // Under the questions: above them it would push the button away that was just clicked.
    m_elsewhere->setMaximumLines(1);
    add(m_elsewhere, Space::l);
    add(m_oneChannel, Space::l);
    connect(&m_model, &AppModel::stateChanged, this, &SpeakersView::follow);
    follow();
}

void SpeakersView::add(Side& side) {
    side.block = new ToneBlock(qt(side.title), "Heard it clearly?", "Missing or distorted");
    side.block->setPlayHint(qt(side.title));
    connect(side.block, &ToneBlock::play, this, [&side, this] { play(side); });
    connect(side.block, &ToneBlock::answered, this, [&side, this](ManualAnswer given) {
        side.heardThrough = m_model.state().speakers.outputName;
        m_model.change([&](SessionState& state) { state.speakers.*side.answer = given; });
    });
    add(side.block, Space::block);
}

void SpeakersView::appear() {
    m_player.emplace(m_model.platform().toneOutput());
    for (Side& side : m_sides)
        side.heardThrough = m_model.state().speakers.outputName;
    readUntilCounted();
}

void SpeakersView::disappear() {
    m_retry.reset();
    m_player.reset();
}

void SpeakersView::play(const Side& side) {
    if (!m_player) return;
    m_player->play(side.left, side.right);
    // The output may be another one than when the page came up: what is told must fit what was heard.
    readOutput(Count::onlyWithoutAnswers);
}

void SpeakersView::readUntilCounted() {
    m_retry.reset();
    if (m_player->outputChannels() == 0)
        m_retry = m_model.platform().scheduler().after(retryInterval, [this] { readUntilCounted(); });
    readOutput(Count::read);
}

void SpeakersView::readOutput(Count count) {
    SpeakerTest test = m_model.state().speakers;
    const bool answered = std::ranges::any_of(
        m_sides, [&](const Side& side) { return test.*side.answer != ManualAnswer::unanswered; });
    const std::uint32_t channels = m_player->outputChannels();
    if (channels != 0 && (count == Count::read || !answered)) test.channels = channels;
    // An answer keeps the name it was given for where none can be read.
    auto name = readDefaultOutputName(m_model.platform().audioObjects());
    if (name || !answered) test.outputName = std::move(name);
    if (test != m_model.state().speakers)
        m_model.change([&](SessionState& state) { state.speakers = std::move(test); });
}

QString SpeakersView::answeredElsewhere() const {
    const SpeakerTest& test = m_model.state().speakers;
    std::vector<const Side*> sides;
    for (const Side& side : m_sides)
        if (test.*side.answer != ManualAnswer::unanswered && side.heardThrough && test.outputName &&
            side.heardThrough != test.outputName)
            sides.push_back(&side);
    if (sides.empty()) return {};
    const QString which =
        sides.size() == 1 ? qt(sides[0]->title) + " was answered" : "Your answers were given";
    return which + " for another output: " + qt(*sides[0]->heardThrough);
}

void SpeakersView::follow() {
    const SpeakerTest& test = m_model.state().speakers;
    const bool single = test.channels < 2;
    m_output->setVisible(test.outputName.has_value());
    m_output->setText("Playing through: " + qt(test.outputName.value_or(std::string())));
    const QString elsewhere = answeredElsewhere();
    m_elsewhere->setVisible(!elsewhere.isEmpty());
    m_elsewhere->setText(elsewhere);
    for (const Side& side : m_sides) {
        side.block->setVisible((side.answer == &SpeakerTest::both) == single);
        side.block->setAnswer(test.*side.answer);
    }
    m_oneChannel->setVisible(single);

    // A session that was begun anew knows no output yet.
    const bool forgotten = m_hasRecord && test == SpeakerTest{};
    m_hasRecord = test != SpeakerTest{};
    if (forgotten && m_player) readUntilCounted();
}

} // namespace tessivo

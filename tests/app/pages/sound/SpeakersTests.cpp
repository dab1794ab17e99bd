#include "tests/app/pages/sound/SoundPages.h"

using namespace tessivo;
using namespace tessivo::pagetest;

namespace {

class SpeakersTests : public SoundFixture {
protected:
    MachineFile::AudioDevice& output() {
        auto& audio = *controls->facts().audio;
        return *std::ranges::find(*audio.devices, *audio.defaultOutput, &MachineFile::AudioDevice::id);
    }
};

} // namespace

TEST_F(SpeakersTests, eachSideSoundsAloneAndItsAnswerGoesToItsOwnRecord) {
    open(Page::speakers);
    EXPECT_TRUE(shown("Playing through: MacBook Air Speakers"));
    EXPECT_EQ(button("Speaker", "Play Tone"), nullptr);
    EXPECT_EQ(findNamed(view.get(), "Speaker", [](QWidget*) { return true; }), nullptr);
    EXPECT_TRUE(press("Left speaker", "Play Tone"));
    EXPECT_TRUE(press("Right speaker", "Play Tone"));
    const auto tone = [](bool left) { return ScheduledTone{82, left, !left, 57'600, 48'000, true}; };
    EXPECT_EQ(controls->tones(), (std::vector{tone(true), tone(false)}));

    EXPECT_TRUE(press("Left speaker", "Heard it clearly?"));
    EXPECT_TRUE(shown("Play the other side"));
    EXPECT_TRUE(press("Right speaker", "Missing or distorted"));
    EXPECT_EQ(state().speakers.left, ManualAnswer::works);
    EXPECT_EQ(state().speakers.right, ManualAnswer::problem);
    EXPECT_TRUE(isChecked(button("Right speaker", "Missing or distorted")));
    EXPECT_FALSE(isChecked(button("Left speaker", "Missing or distorted")));
    EXPECT_TRUE(shown("No clean sound: right speaker"));

    EXPECT_TRUE(press("Right speaker", "Missing or distorted"));
    EXPECT_EQ(state().speakers.right, ManualAnswer::unanswered) << "taken back";
    EXPECT_TRUE(press("Left speaker", "Clear"));
    EXPECT_EQ(state().speakers.left, ManualAnswer::unanswered);
    EXPECT_TRUE(shown("Not run"));
    expectWhole();
}

TEST_F(SpeakersTests, anOutputOfOneChannelAsksOneQuestion) {
    useMachine("mac-mini-m4");
    model->change([](SessionState& session) { session.speakers.left = ManualAnswer::problem; });
    open(Page::speakers);
    EXPECT_EQ(state().speakers.channels, 1);
    EXPECT_TRUE(shown("This output has one channel (like a Mac mini's own speaker), so there's one tone."));
    EXPECT_EQ(button("Left speaker", "Play Tone"), nullptr);
    EXPECT_TRUE(press("Speaker", "Play Tone"));
    ASSERT_EQ(controls->tones().size(), 1u);
    EXPECT_TRUE(controls->tones()[0].left && controls->tones()[0].right);
    EXPECT_TRUE(press("Speaker", "Heard it clearly?"));
    EXPECT_EQ(state().speakers.both, ManualAnswer::works);
    EXPECT_TRUE(shown("Tone heard clearly"));
    EXPECT_EQ(state().speakers.left, ManualAnswer::problem) << "left alone";
}

TEST_F(SpeakersTests, whatIsToldFitsWhatIsHeard) {
    open(Page::speakers);
    press("Left speaker", "Heard it clearly?");
    for (const std::string& name : oddNames) {
        output().name = name;
        press("Left speaker", "Play Tone");
        EXPECT_EQ(state().speakers.outputName, name);
        expectWhole();
    }
    controls->insertHeadphones(SimulatedControls::JackForm::separateDevice);
    press("Right speaker", "Play Tone");
    EXPECT_TRUE(shown("Playing through: External Headphones"));
    EXPECT_EQ(controls->tones().back().device, controls->facts().audio->defaultOutput);
    EXPECT_EQ(state().speakers.left, ManualAnswer::works) << "answers stay";
}

TEST_F(SpeakersTests, anOpenPageFollowsTheOutput) {
    open(Page::speakers);
    press("Left speaker", "Heard it clearly?");
    output().name = "Another Speaker";
    output().format.channelCount = 1;
    pass(std::chrono::seconds(1));
    EXPECT_TRUE(shown("Playing through: Another Speaker"));
    EXPECT_NE(button("Speaker", "Play Tone"), nullptr);
    controls->facts().audio.reset();
    pass(std::chrono::seconds(1));
    EXPECT_EQ(state().speakers.outputName, std::nullopt);
    EXPECT_EQ(state().speakers.channels, 1);
    EXPECT_EQ(state().speakers.left, ManualAnswer::works) << "answers stay";
    pass(std::chrono::seconds(2));
    const auto writes = controls->defaultsWrites();
    pass(std::chrono::seconds(60));
    EXPECT_EQ(controls->defaultsWrites(), writes) << "nothing is written without a change";
    close();
    controls->insertHeadphones(SimulatedControls::JackForm::separateDevice);
    pass(std::chrono::seconds(5));
    EXPECT_EQ(state().speakers.outputName, std::nullopt) << "nothing is read while the page is closed";
}

TEST_F(SpeakersTests, withoutAnOutputThePageStaysUsable) {
    controls->facts().audio.reset();
    open(Page::speakers);
    EXPECT_EQ(state().speakers.channels, 2) << "an unknown count leaves what was known";
    EXPECT_FALSE(shownTexts(view.get()).join('\n').contains("Playing through"));
    EXPECT_TRUE(press("Left speaker", "Play Tone"));
    EXPECT_TRUE(press("Left speaker", "Missing or distorted"));
    EXPECT_TRUE(shown("No clean sound: left speaker"));
    EXPECT_TRUE(controls->tones().empty());
}

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
    EXPECT_EQ(findNamed(view.get(), "Speaker", [](QWidget*) { return true; }), nullptr);
    EXPECT_TRUE(press("Left speaker", "Play Tone") && press("Right speaker", "Play Tone"));
    const auto tone = [](bool left) { return ScheduledTone{82, left, !left, 57'600, 48'000, true}; };
    EXPECT_EQ(controls->tones(), (std::vector{tone(true), tone(false)}));

    struct {
        const char* block;
        const char* button;
        const char* summary;
    } const steps[] = {{"Left speaker", "Heard it clearly?", "Play the other side"},
                       {"Right speaker", "Missing or distorted", "No clean sound: right speaker"},
                       {"Right speaker", "Missing or distorted", "Play the other side"},
                       {"Left speaker", "Clear", "Not run"}};
    for (const auto& [block, name, summary] : steps) {
        EXPECT_TRUE(press(block, name));
        EXPECT_TRUE(shown(summary)) << block << ", " << name << ": " << summary;
    }
    expectWhole();
}

TEST_F(SpeakersTests, anOutputOfOneChannelAsksOneQuestion) {
    useMachine("mac-mini-m4");
    model->change([](SessionState& session) { session.speakers.left = ManualAnswer::problem; });
    open(Page::speakers);
    EXPECT_TRUE(shown("This output has one channel (like a Mac mini's own speaker), so there's one tone."));
    EXPECT_EQ(button("Left speaker", "Play Tone"), nullptr);
    EXPECT_TRUE(press("Speaker", "Play Tone"));
    ASSERT_EQ(controls->tones().size(), 1u);
    EXPECT_TRUE(controls->tones()[0].left && controls->tones()[0].right);
    EXPECT_TRUE(press("Speaker", "Heard it clearly?"));
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
    output().name = "Another Speaker";
    output().format.channelCount = 1;
    pass(1s);
    EXPECT_TRUE(shown("Playing through: Another Speaker"));
    EXPECT_NE(button("Speaker", "Play Tone"), nullptr);
    controls->facts().audio.reset();
    pass(3s);
    EXPECT_EQ(state().speakers.outputName, std::nullopt);
    EXPECT_EQ(state().speakers.channels, 1) << "an unknown count leaves what was known";
    EXPECT_FALSE(shownTexts(view.get()).join('\n').contains("Playing through"));
    const auto writes = controls->defaultsWrites();
    EXPECT_TRUE(press("Speaker", "Play Tone"));
    pass(60s);
    EXPECT_TRUE(controls->tones().empty());
    EXPECT_EQ(controls->defaultsWrites(), writes) << "nothing is written without a change";
    EXPECT_TRUE(press("Speaker", "Missing or distorted")) << "the page stays usable";
    close();
    controls->insertHeadphones(SimulatedControls::JackForm::separateDevice);
    pass(5s);
    EXPECT_EQ(state().speakers.outputName, std::nullopt) << "nothing is read while the page is closed";
}

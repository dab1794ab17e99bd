#include "tests/app/pages/SoundPages.h"

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
        output().properties->name = name;
        press("Left speaker", "Play Tone");
        EXPECT_EQ(state().speakers.outputName, name);
        EXPECT_TRUE(shown("Left speaker was answered for another output: MacBook Air Speakers"));
        expectWhole();
    }
    controls->insertHeadphones(SimulatedControls::JackForm::separateDevice);
    press("Right speaker", "Play Tone");
    EXPECT_TRUE(shown("Playing through: External Headphones"));
    EXPECT_EQ(controls->tones().back().device, controls->facts().audio->defaultOutput);
    EXPECT_EQ(state().speakers.left, ManualAnswer::works) << "answers stay";
}

TEST_F(SpeakersTests, anOutputThatComesWhileThePageIsOpenChangesNothingBeforeATone) {
    const auto elsewhere = [this] {
        return shownTexts(view.get()).filter("for another output").join('\n').toStdString();
    };
    open(Page::speakers);
    press("Left speaker", "Heard it clearly?");
    pass(5s);
    output().properties->name = "Headset";
    output().format->channelCount = 1;
    const auto writes = controls->defaultsWrites();
    pass(60s);
    EXPECT_TRUE(shown("Playing through: MacBook Air Speakers"));
    EXPECT_EQ(controls->defaultsWrites(), writes);
    EXPECT_EQ(elsewhere(), "");

    press("Right speaker", "Play Tone");
    EXPECT_EQ(state().speakers.channels, 2) << "the question stays while it is half answered";
    EXPECT_TRUE(shown("Playing through: Headset"));
    EXPECT_EQ(elsewhere(), "Left speaker was answered for another output: MacBook Air Speakers");
    press("Right speaker", "Heard it clearly?");
    EXPECT_EQ(elsewhere(), "Left speaker was answered for another output: MacBook Air Speakers");

    output().properties->name = "MacBook Air Speakers";
    close();
    open(Page::speakers);
    EXPECT_EQ(elsewhere(), "Your answers were given for another output: Headset");
    EXPECT_EQ(state().speakers.channels, 1) << "read as the page appears";
    EXPECT_EQ(state().speakers.left, ManualAnswer::works);
    output().format->channelCount = 2;
    model->change([](SessionState& session) { session.speakers.left = session.speakers.right = {}; });
    EXPECT_EQ(elsewhere(), "");
    press("Speaker", "Play Tone");
    EXPECT_NE(button("Right speaker", "Play Tone"), nullptr) << "with no answer a tone asks anew";

    controls->facts().audio.reset();
    press("Left speaker", "Play Tone");
    EXPECT_EQ(state().speakers.outputName, std::nullopt);
    EXPECT_FALSE(shownTexts(view.get()).join('\n').contains("Playing through"));
    EXPECT_TRUE(press("Left speaker", "Missing or distorted")) << "the page stays usable";
}

TEST_F(SpeakersTests, theOutputIsReadUntilItsChannelsAreKnown) {
    const auto audio = controls->facts().audio;
    controls->facts().audio.reset();
    model->change([](SessionState& session) {
        session.speakers.outputName = "Old Speakers";
        session.speakers.left = ManualAnswer::works;
    });
    open(Page::speakers);
    pass(3s);
    EXPECT_EQ(state().speakers.outputName, "Old Speakers") << "what was answered for is kept";
    EXPECT_EQ(state().speakers.channels, 2);
    controls->facts().audio = audio;
    output().format->channelCount = 1;
    pass(1s);
    EXPECT_EQ(state().speakers.channels, 1);
    EXPECT_TRUE(shown("Playing through: MacBook Air Speakers"));
    output().format->channelCount = 2;
    pass(60s);
    EXPECT_EQ(state().speakers.channels, 1) << "read once";
    model->reset();
    EXPECT_TRUE(shown("Playing through: MacBook Air Speakers")) << "a session begun anew knows no output";

    close();
    controls->facts().audio.reset();
    open(Page::speakers);
    close();
    controls->facts().audio = audio;
    output().properties->name = "Another Speaker";
    pass(5s);
    EXPECT_NE(state().speakers.outputName, "Another Speaker") << "nothing is read while the page is closed";
}

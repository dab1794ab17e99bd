#include "tests/app/pages/SoundPages.h"

using namespace tessivo;
using namespace tessivo::pagetest;
using JackForm = SimulatedControls::JackForm;

namespace {

const std::string clear = "Heard it clearly, in that ear only?";

class HeadphonesTests : public SoundFixture {
protected:
    void expectPlayable(bool playable) {
        for (const std::string ear : {"left", "right"}) {
            const auto* play = button((ear == "left" ? "Left" : "Right") + std::string(" ear"), "Play Tone");
            EXPECT_EQ(play->isEnabled(), playable);
            EXPECT_EQ(play->toolTip(), playable ? "" : "Plug wired headphones into the jack first");
            EXPECT_EQ(play->accessibleDescription().toStdString(), "Plays a tone in the " + ear + " ear");
        }
    }
};

} // namespace

TEST_F(HeadphonesTests, aJackOfEitherFormIsSeenPlayedThroughAndRemembered) {
    struct {
        JackForm form;
        std::string name;
        std::uint32_t device;
    } const cases[] = {{JackForm::dataSource, "MacBook Air Speakers", 82},
                       {JackForm::separateDevice, "External Headphones", 83}};
    for (const auto& [form, name, device] : cases) {
        SCOPED_TRACE(name);
        useMachine("macbook-air-m2");
        open(Page::headphones);
        EXPECT_TRUE(shown("Waiting for wired headphones"));
        expectPlayable(false);
        EXPECT_FALSE(state().headphones);

        controls->insertHeadphones(form);
        pass(1s);
        EXPECT_TRUE(shown("Headphones in the jack") && shown("Output: " + name));
        expectPlayable(true);
        EXPECT_TRUE(press("Left ear", "Play Tone") && press("Right ear", "Play Tone"));
        const auto tone = [&, device = device](bool left) {
            return ScheduledTone{device, left, !left, 57'600, 48'000, true};
        };
        EXPECT_EQ(controls->tones(), (std::vector{tone(true), tone(false)}));

        EXPECT_TRUE(press("Left ear", clear) && press("Right ear", "Missing or crackly"));
        controls->pullHeadphones();
        pass(1s);
        EXPECT_TRUE(shown("Headphones were seen; plug them back in to play"));
        expectPlayable(false);
        EXPECT_EQ(state().headphones,
                  (HeadphoneTest{true, name, ManualAnswer::works, ManualAnswer::problem}));
        EXPECT_TRUE(press("Right ear", "Clear")) << "an answer can be taken back without the plug";
        EXPECT_TRUE(shown("Headphones detected; play both sides"));

        controls->insertHeadphones(form);
        pass(1s);
        EXPECT_TRUE(press("Right ear", "Play Tone"));
        EXPECT_EQ(controls->tones().back(), tone(false)) << "the same jack again";
        expectWhole();
    }
}

TEST_F(HeadphonesTests, aPlugPulledJustNowSendsNoToneToTheSpeakers) {
    controls->insertHeadphones(JackForm::dataSource);
    open(Page::headphones);
    expectPlayable(true); // seen at once
    controls->pullHeadphones();
    EXPECT_TRUE(press("Left ear", "Play Tone"));
    EXPECT_TRUE(controls->tones().empty());
    expectPlayable(false);
}

TEST_F(HeadphonesTests, anAnswerWithoutAJackIsKeptAndNothingIsMadeUp) {
    open(Page::headphones);
    EXPECT_TRUE(press("Left ear", "Clear"));
    EXPECT_FALSE(state().headphones);
    EXPECT_TRUE(press("Left ear", clear) && press("Right ear", clear));
    EXPECT_TRUE(shown("Tones heard, but the Mac didn't report headphones in the jack"));
    controls->insertHeadphones(JackForm::separateDevice);
    pass(1s);
    EXPECT_TRUE(shown("Headphones detected in the jack; left and right tones heard clearly"));
}

TEST_F(HeadphonesTests, nothingIsReadOnceThePageIsLeft) {
    open(Page::headphones);
    view->hide();
    controls->insertHeadphones(JackForm::dataSource);
    pass(5s);
    EXPECT_FALSE(state().headphones);
    view->show();
    pass(5s);
    EXPECT_TRUE(shown("Headphones in the jack"));
    const auto writes = controls->defaultsWrites();
    pass(60s);
    EXPECT_EQ(controls->defaultsWrites(), writes) << "an open page writes only what changed";
}

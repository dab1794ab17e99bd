#include "tests/app/pages/sound/SoundPages.h"

using namespace tessivo;
using namespace tessivo::pagetest;
using namespace std::chrono_literals;
using JackForm = SimulatedControls::JackForm;

namespace {

class HeadphonesTests : public SoundFixture {
protected:
    bool playable(const char* ear) { return button(ear, "Play Tone")->isEnabled(); }
};

} // namespace

TEST_F(HeadphonesTests, aJackOfEitherFormIsSeenPlayedThroughAndRemembered) {
    struct {
        JackForm form;
        const char* name;
        std::uint32_t device;
    } const cases[] = {{JackForm::dataSource, "MacBook Air Speakers", 82},
                       {JackForm::separateDevice, "External Headphones", 83}};
    for (const auto& [form, name, device] : cases) {
        SCOPED_TRACE(name);
        useMachine("macbook-air-m2");
        open(Page::headphones);
        EXPECT_TRUE(shown("Waiting for wired headphones"));
        for (const char* ear : {"Left ear", "Right ear"}) {
            EXPECT_FALSE(playable(ear));
            EXPECT_EQ(button(ear, "Play Tone")->toolTip(), "Plug wired headphones into the jack first");
        }
        EXPECT_FALSE(state().headphones);

        controls->insertHeadphones(form);
        pass(1s);
        EXPECT_TRUE(shown("Headphones in the jack"));
        EXPECT_TRUE(shown((std::string("Output: ") + name).c_str()));
        EXPECT_TRUE(shown("Headphones detected; play both sides"));
        EXPECT_EQ(state().headphones->jackName, name);
        EXPECT_TRUE(press("Left ear", "Play Tone"));
        EXPECT_TRUE(press("Right ear", "Play Tone"));
        const auto tone = [&](bool left) { return ScheduledTone{device, left, !left, 57'600, 48'000, true}; };
        EXPECT_EQ(controls->tones(), (std::vector{tone(true), tone(false)}));
        EXPECT_EQ(button("Left ear", "Play Tone")->toolTip(), "");
        EXPECT_EQ(button("Left ear", "Play Tone")->accessibleDescription(), "Plays a tone in the left ear");
        EXPECT_EQ(button("Right ear", "Play Tone")->accessibleDescription(), "Plays a tone in the right ear");

        EXPECT_TRUE(press("Left ear", "Heard it clearly, in that ear only?"));
        EXPECT_TRUE(press("Right ear", "Missing or crackly"));
        controls->pullHeadphones();
        pass(1s);
        EXPECT_TRUE(shown("Headphones were seen; plug them back in to play"));
        EXPECT_FALSE(playable("Left ear"));
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
    ASSERT_TRUE(playable("Left ear")) << "seen at once";
    controls->pullHeadphones();
    EXPECT_TRUE(press("Left ear", "Play Tone"));
    EXPECT_TRUE(controls->tones().empty());
    EXPECT_FALSE(playable("Left ear"));
}

TEST_F(HeadphonesTests, anAnswerWithoutAJackIsKeptAndNothingIsMadeUp) {
    open(Page::headphones);
    EXPECT_TRUE(press("Left ear", "Clear"));
    EXPECT_FALSE(state().headphones);
    EXPECT_TRUE(press("Left ear", "Heard it clearly, in that ear only?"));
    EXPECT_TRUE(press("Right ear", "Heard it clearly, in that ear only?"));
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
    settle();
    EXPECT_TRUE(shown("Headphones in the jack"));
    pass(5s);
    const auto writes = controls->defaultsWrites();
    pass(60s);
    EXPECT_EQ(controls->defaultsWrites(), writes) << "an open page writes only what changed";
}

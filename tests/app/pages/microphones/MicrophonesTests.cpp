#include "app/controls/LevelBar.h"
#include "tests/app/pages/SoundPages.h"

using namespace tessivo;
using namespace tessivo::pagetest;

namespace {

const std::string builtIn = "MacBook Air Microphone", usb = "USB Microphone";
const std::string builtInID = "BuiltInMicrophoneDevice";

class MicrophonesTests : public SoundFixture {
protected:
    void SetUp() override {
        SoundFixture::SetUp();
        controls->addDevice(MediaType::audio, {"usb", usb});
        open(Page::microphones);
    }
    LevelBar* meter(const std::string& microphone) {
        return findByName<LevelBar>(view.get(), QString::fromStdString(microphone), "Level");
    }
    std::string spoken(const std::string& microphone) {
        return accessibleValueOf(meter(microphone)).toStdString();
    }
    /// One window of the meter with this sound in it.
    void hear(const std::string& id, double level) {
        ASSERT_TRUE(controls->speak(id, level));
        pass(100ms);
    }
    double peak(std::size_t at = 0) { return state().microphones[at].peak.value_or(0); }
    int verdicts(const char* verdict) {
        return int(shownTexts(view.get()).filter(QString::fromUtf8(verdict)).count());
    }
};

} // namespace

TEST_F(MicrophonesTests, theMeterFollowsTheSoundAndThePeakOnlyRises) {
    EXPECT_EQ(spoken(builtIn), "not listening");
    EXPECT_TRUE(press(builtIn, "Listen"));
    EXPECT_EQ(spoken(builtIn), "-160 decibels");
    struct {
        double level;
        double shownLevel;
        const char* spoken;
        double peak;
        bool heard;
    } const rows[] = {{-48, 0.2, "-48 decibels", -48, false},
                      {-35.2, 24.8 / 60, "-35 decibels", -35.2, false},
                      {-30, 0.5, "-30 decibels", -30, true},
                      {-60, 0, "-60 decibels", -30, true},
                      {-12, 0.8, "-12 decibels", -12, true}};
    for (const auto& [level, shownLevel, words, highest, heard] : rows) {
        SCOPED_TRACE(level);
        hear(builtInID, level);
        EXPECT_NEAR(meter(builtIn)->level(), shownLevel, 0.001);
        EXPECT_EQ(spoken(builtIn), words);
        EXPECT_NEAR(peak(), highest, 0.01);
        EXPECT_EQ(verdicts("Picked up sound"), heard ? 1 : 0);
        EXPECT_EQ(verdicts("Too quiet so far"), heard ? 1 : 2);
        EXPECT_EQ(spoken(usb), "not listening");
    }
    EXPECT_TRUE(press(builtIn, "Stop"));
    EXPECT_EQ(spoken(builtIn), "not listening");
    EXPECT_EQ(meter(builtIn)->level(), 0);
    EXPECT_TRUE(press(builtIn, "Listen"));
    hear(builtInID, -50);
    EXPECT_NEAR(peak(), -12, 0.01) << "kept from the earlier listen";
    expectWhole();
}

TEST_F(MicrophonesTests, allMicrophonesPassOneAfterTheOther) {
    EXPECT_TRUE(press(builtIn, "Listen"));
    hear(builtInID, -20);
    EXPECT_TRUE(press(usb, "Listen"));
    EXPECT_EQ(spoken(builtIn), "not listening");
    EXPECT_TRUE(released(builtInID));
    EXPECT_FALSE(controls->speak(builtInID, 0)) << "closed: nothing of it is heard";
    hear("usb", -34);
    EXPECT_TRUE(shown("All 2 microphones picked up sound"));
    EXPECT_NEAR(peak(), -20, 0.01);

    controls->removeDevice(MediaType::audio, "usb");
    pass(5s);
    EXPECT_EQ(spoken(usb), "-34 decibels");
    EXPECT_TRUE(press(usb, "Stop")) << "one that drops out can be stopped";
    EXPECT_EQ(verdicts("Picked up sound"), 2);
    open(Page::microphones);
    EXPECT_TRUE(shown("Picked up sound")) << "readings outlive the page";
    EXPECT_EQ(state().microphones.size(), 1u);
}

TEST_F(MicrophonesTests, aSessionBegunAnewTakesNoSoundOfTheOldOne) {
    EXPECT_TRUE(press(builtIn, "Listen"));
    model->change([](SessionState& session) { session.microphones.clear(); });
    hear(builtInID, -20);
    EXPECT_TRUE(state().microphones.empty());
    EXPECT_EQ(verdicts("Picked up sound"), 0);
}

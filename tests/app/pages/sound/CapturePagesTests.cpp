#include "tests/app/pages/sound/SoundPages.h"

using namespace tessivo;
using namespace tessivo::pagetest;
using namespace std::chrono_literals;

namespace {

/// What the pages of microphones and cameras do alike, run on both.
struct CapturePage {
    Page page;
    MediaType type;
    const char* device;
    const char* id;
    const char* open;
    const char* close;
    const char* settings;
    const char* settingsURL;
    const char* accessOff;
    const char* whatToDo;
    const char* noneFound;
    bool SessionState::*denied;
    bool SessionState::*listed;
};

const CapturePage pages[] = {
    {Page::microphones, MediaType::audio, "MacBook Air Microphone", "BuiltInMicrophoneDevice", "Listen",
     "Stop", "Open Microphone Settings",
     "x-apple.systempreferences:com.apple.preference.security?Privacy_Microphone", "Microphone access is off",
     "Turn on Tessivo in System Settings › Privacy & Security › Microphone, then test again.",
     "No microphone found.", &SessionState::microphoneDenied, &SessionState::microphonesListed},
    {Page::cameras, MediaType::video, "FaceTime HD Camera", "47B4B64B-7067-4B9C-AD2B-AE273A71F4B5",
     "Open Camera", "Close Camera", "Open Camera Settings",
     "x-apple.systempreferences:com.apple.preference.security?Privacy_Camera", "Camera access is off",
     "Turn on Tessivo in System Settings › Privacy & Security › Camera, then test again.", "No camera found.",
     &SessionState::cameraDenied, &SessionState::camerasListed}};

class CapturePagesTests : public SoundFixture, public testing::WithParamInterface<CapturePage> {
protected:
    const CapturePage& is = GetParam();

    void openPage() {
        open(is.page);
        pass(0s); // the answer to the question for access
    }
    bool failed() {
        return is.type == MediaType::audio ? state().microphones[0].failed : state().cameras[0].failed;
    }
    std::size_t readings() {
        return is.type == MediaType::audio ? state().microphones.size() : state().cameras.size();
    }
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Both, CapturePagesTests, testing::ValuesIn(pages),
                         [](const auto& page) { return std::string(rawValue(page.param.page)); });

TEST_P(CapturePagesTests, accessIsAskedForAndTheDevicesListed) {
    controls->holdPrompts(true);
    openPage();
    EXPECT_FALSE(shown(is.device) || shown(is.settings) || shown(is.noneFound)) << "not answered yet";
    EXPECT_FALSE(state().*is.listed);
    controls->setAccess(is.type, AuthorizationStatus::authorized);
    pass(0s);
    EXPECT_TRUE(shown(is.device));
    EXPECT_TRUE(state().*is.listed);
    EXPECT_FALSE(controls->isOpen(is.id)) << "nothing opens by itself";
    expectWhole();
}

TEST_P(CapturePagesTests, aDenialShowsTheWayToTheSettingsAndNoRows) {
    controls->setAccess(is.type, AuthorizationStatus::denied);
    openPage();
    EXPECT_TRUE(state().*is.denied);
    EXPECT_TRUE(shown(is.accessOff) && shown(is.whatToDo));
    EXPECT_FALSE(shown(is.device));
    EXPECT_TRUE(press(is.settings));
    EXPECT_EQ(controls->openedURLs(), std::vector<std::string>{is.settingsURL});
    expectWhole();
    pass(10s);
    EXPECT_TRUE(state().*is.denied);
    controls->setAccess(is.type, AuthorizationStatus::authorized);
    pass(1s);
    EXPECT_FALSE(state().*is.denied);
    EXPECT_TRUE(shown(is.device)) << "found again when the person comes back from the settings";
    EXPECT_FALSE(shown(is.settings));
}

TEST_P(CapturePagesTests, accessTakenAwayMeanwhileClosesWhatIsOpen) {
    openPage();
    controls->addDevice(is.type, {"other", "Other"});
    openPage();
    EXPECT_TRUE(press(is.device, is.open));
    EXPECT_TRUE(opened(is.id));
    controls->setAccess(is.type, AuthorizationStatus::denied);
    EXPECT_TRUE(press("Other", is.open));
    EXPECT_TRUE(shown(is.settings));
    EXPECT_FALSE(shown(is.device));
    EXPECT_TRUE(released(is.id));
    EXPECT_FALSE(failed()) << "a denial is no fault of the device";
}

TEST_P(CapturePagesTests, anAnswerThatComesAfterThePageIsLeftIsNobodys) {
    controls->holdPrompts(true);
    openPage();
    view->hide();
    controls->setAccess(is.type, AuthorizationStatus::denied);
    pass(5s);
    EXPECT_FALSE(state().*is.denied || state().*is.listed);
    close();
    controls->setAccess(is.type, AuthorizationStatus::authorized);
    pass(5s);
    EXPECT_FALSE(state().*is.listed);
}

TEST_P(CapturePagesTests, aMacWithoutADeviceSaysSoUntilOneIsPluggedIn) {
    useMachine("mac-mini-m4");
    openPage();
    EXPECT_TRUE(shown(is.noneFound));
    EXPECT_TRUE(shown("None built in (Mac mini, Mac Studio and Mac Pro have none)"));
    EXPECT_TRUE(state().*is.listed);
    expectWhole();
    controls->addDevice(is.type, {"usb", "USB Device"});
    pass(1s);
    EXPECT_TRUE(shown("USB Device"));
    EXPECT_FALSE(shown(is.noneFound));
}

TEST_P(CapturePagesTests, aListThatBecomesEmptyIsToldAndComesBackWithItsReadings) {
    controls->addDevice(is.type, {"other", "Other"});
    openPage();
    const auto session = [&] {
        model->change([&](SessionState& changed) {
            if (is.type == MediaType::audio)
                changed.microphones[1].peak = -20;
            else
                changed.cameras[1].answer = ManualAnswer::works;
        });
        return state();
    }();
    EXPECT_TRUE(press(is.device, is.open));
    EXPECT_TRUE(opened(is.id));
    for (const char* id : {is.id, "other"})
        controls->removeDevice(is.type, id);
    pass(1s);
    EXPECT_TRUE(shown(is.noneFound));
    EXPECT_FALSE(shown(is.device) || shown("Other"));
    EXPECT_TRUE(released(is.id));
    EXPECT_EQ(state(), session);
    expectWhole();

    controls->addDevice(is.type, {is.id, is.device});
    pass(1s);
    EXPECT_TRUE(shown(is.device));
    EXPECT_FALSE(shown(is.noneFound));
    EXPECT_EQ(state(), session) << "the one that isn't back yet keeps its reading";
    EXPECT_TRUE(press(is.device, is.open));
    EXPECT_TRUE(opened(is.id));
    controls->addDevice(is.type, {"other", "Other"});
    controls->addDevice(is.type, {"new", "New"});
    pass(1s);
    EXPECT_TRUE(shown("Other") && shown("New"));
    EXPECT_NE(button(is.device, is.close), nullptr) << "still open";
    EXPECT_EQ(readings(), 3u);
    EXPECT_TRUE(press("Other", is.open));
    EXPECT_TRUE(opened("other"));
}

TEST_P(CapturePagesTests, theTabKeyReachesTheRowsInTheOrderOfThePage) {
    controls->addDevice(is.type, {"other", "Other"});
    openPage();
    QStringList row{is.open};
    if (is.type == MediaType::video)
        row << "Picture looks right"
            << "Problem";
    EXPECT_EQ(tabStops().mid(0, 2 * row.size()), row + row) << tabStops().join(", ").toStdString();
    EXPECT_EQ(tabStops().size(), 2 * row.size() + 2) << "and then the two controls below";
}

TEST_P(CapturePagesTests, onlyOneDeviceIsOpenAndTheNextClosesIt) {
    controls->addDevice(is.type, {"other", "Other"});
    openPage();
    EXPECT_TRUE(press(is.device, is.open));
    EXPECT_EQ(button(is.device, is.open), nullptr);
    EXPECT_TRUE(press("Other", is.open));
    EXPECT_TRUE(released(is.id));
    EXPECT_NE(button(is.device, is.open), nullptr);
    EXPECT_TRUE(press("Other", is.close));
    EXPECT_TRUE(released("other"));
    EXPECT_NE(button("Other", is.open), nullptr);
}

TEST_P(CapturePagesTests, leavingLetsGoAtOnceAlsoOfADeviceThatNeverOpens) {
    for (const auto opening :
         {std::optional(0ms), std::optional(5000ms), std::optional<std::chrono::milliseconds>()})
        for (const bool byHiding : {true, false}) {
            controls->setOpening(is.id, opening);
            openPage();
            EXPECT_TRUE(press(is.device, is.open));
            EXPECT_TRUE(opened(is.id));
            pass(1s);
            EXPECT_NE(button(is.device, is.close), nullptr);
            if (byHiding)
                view->hide();
            else
                close();
            EXPECT_TRUE(released(is.id));
            close();
        }
}

TEST_P(CapturePagesTests, aDeviceThatWontOpenOrHasGoneIsTold) {
    for (const bool gone : {false, true}) {
        useMachine("macbook-air-m2");
        openPage();
        if (gone)
            controls->removeDevice(is.type, is.id);
        else
            controls->setOpens(is.type, is.id, false);
        EXPECT_TRUE(press(is.device, is.open));
        EXPECT_TRUE(failed());
        EXPECT_NE(button(is.device, is.open), nullptr) << "it can be tried again";
        const char* word = is.type == MediaType::audio ? "Couldn't open: " : "Problem: ";
        EXPECT_TRUE(shown((word + std::string(is.device)).c_str()));
        openPage();
        EXPECT_EQ(readings(), gone ? 0u : 1u) << "a device that has gone loses its reading at the next look";
    }
}

TEST_P(CapturePagesTests, oddNamesAndOneIdTwice) {
    int number = 0;
    for (const std::string& name : oddNames)
        controls->addDevice(is.type, {"odd" + std::to_string(number++), name});
    controls->addDevice(is.type, {is.id, "The same once more"});
    openPage();
    EXPECT_EQ(readings(), oddNames.size() + 1);
    EXPECT_FALSE(shown("The same once more"));
    EXPECT_TRUE(press(oddNames[1], is.open));
    expectWhole();
}

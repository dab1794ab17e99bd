#include "tests/app/pages/SoundPages.h"

using namespace tessivo;
using namespace tessivo::pagetest;

namespace {

/// What the pages of microphones and cameras do alike, run on both.
struct CapturePage {
    Page page;
    MediaType type;
    std::string kind;
    std::string device, id;
    std::string open, close;
    bool SessionState::* denied;
    bool SessionState::* listed;
};

const CapturePage pages[] = {
    {Page::microphones, MediaType::audio, "Microphone", "MacBook Air Microphone", "BuiltInMicrophoneDevice",
     "Listen", "Stop", &SessionState::microphoneDenied, &SessionState::microphonesListed},
    {Page::cameras, MediaType::video, "Camera", "FaceTime HD Camera", "47B4B64B-7067-4B9C-AD2B-AE273A71F4B5",
     "Open Camera", "Close Camera", &SessionState::cameraDenied, &SessionState::camerasListed}};

class CapturePagesTests : public SoundFixture, public testing::WithParamInterface<CapturePage> {
protected:
    const CapturePage& is = GetParam();
    const bool audio = is.type == MediaType::audio;
    const std::string settings = "Open " + is.kind + " Settings";
    const std::string noneFound = audio ? "No microphone found." : "No camera found.";

    void openPage() { open(is.page); }
    /// The page with a second device, "Other".
    void openWithAnother() {
        controls->addDevice(is.type, {"other", "Other"});
        openPage();
    }
    bool failed() { return audio ? state().microphones[0].failed : state().cameras[0].failed; }
    std::size_t readings() { return audio ? state().microphones.size() : state().cameras.size(); }
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Both, CapturePagesTests, testing::ValuesIn(pages),
                         [](const auto& page) { return std::string(rawValue(page.param.page)); });

TEST_P(CapturePagesTests, accessIsAskedForAndTheDevicesListed) {
    controls->holdPrompts(true);
    openPage();
    EXPECT_FALSE(shown(is.device) || shown(settings) || shown(noneFound)) << "not answered yet";
    EXPECT_FALSE(state().*is.listed);
    controls->setAccess(is.type, AuthorizationStatus::authorized);
    pass(0s);
    EXPECT_TRUE(shown(is.device) && state().*is.listed);
    EXPECT_FALSE(controls->isOpen(is.id)) << "nothing opens by itself";
    expectWhole();
}

TEST_P(CapturePagesTests, aDenialShowsTheWayToTheSettingsAndNoRows) {
    controls->setAccess(is.type, AuthorizationStatus::denied);
    openPage();
    EXPECT_TRUE(shown(is.kind + " access is off"));
    EXPECT_TRUE(
        shown("Turn on Tessivo in System Settings › Privacy & Security › " + is.kind + ", then test again."));
    EXPECT_FALSE(shown(is.device));
    EXPECT_TRUE(press(settings.c_str()));
    EXPECT_THAT(
        controls->openedURLs(),
        testing::ElementsAre("x-apple.systempreferences:com.apple.preference.security?Privacy_" + is.kind));
    expectWhole();
    pass(10s);
    EXPECT_TRUE(state().*is.denied);
    controls->setAccess(is.type, AuthorizationStatus::authorized);
    pass(1s);
    EXPECT_FALSE(state().*is.denied || shown(settings));
    EXPECT_TRUE(shown(is.device)) << "found again when the person comes back from the settings";
}

TEST_P(CapturePagesTests, accessTakenAwayMeanwhileClosesWhatIsOpen) {
    openWithAnother();
    EXPECT_TRUE(press(is.device, is.open) && opened(is.id));
    controls->setAccess(is.type, AuthorizationStatus::denied);
    EXPECT_TRUE(press("Other", is.open));
    EXPECT_TRUE(shown(settings) && !shown(is.device));
    EXPECT_TRUE(released(is.id));
    EXPECT_FALSE(failed()) << "a denial is no fault of the device";
}

TEST_P(CapturePagesTests, anAnswerThatComesAfterThePageIsLeftIsNobodys) {
    controls->holdPrompts(true);
    openPage();
    view->hide();
    controls->setAccess(is.type, AuthorizationStatus::denied);
    pass(5s);
    EXPECT_FALSE(state().*is.denied);
    close();
    controls->setAccess(is.type, AuthorizationStatus::authorized);
    pass(5s);
    EXPECT_FALSE(state().*is.listed);
}

TEST_P(CapturePagesTests, aMacWithoutADeviceSaysSoUntilOneIsPluggedIn) {
    useMachine("mac-mini-m4");
    openPage();
    EXPECT_TRUE(shown(noneFound) && state().*is.listed);
    expectWhole();
    controls->addDevice(is.type, {"usb", "USB Device"});
    pass(1s);
    EXPECT_TRUE(shown("USB Device") && !shown(noneFound));
}

TEST_P(CapturePagesTests, aListThatBecomesEmptyIsToldAndComesBackWithItsReadings) {
    openWithAnother();
    model->change([&](SessionState& changed) {
        if (audio)
            changed.microphones[1].peak = -20;
        else
            changed.cameras[1].answer = ManualAnswer::works;
    });
    const SessionState session = state();
    EXPECT_TRUE(press(is.device, is.open) && opened(is.id));
    for (const std::string& id : {is.id, std::string("other")})
        controls->removeDevice(is.type, id);
    pass(1s);
    EXPECT_TRUE(shown(noneFound) && !shown(is.device) && !shown("Other"));
    EXPECT_TRUE(released(is.id));
    EXPECT_EQ(state(), session);
    expectWhole();

    controls->addDevice(is.type, {is.id, is.device});
    pass(1s);
    EXPECT_TRUE(shown(is.device) && !shown(noneFound));
    EXPECT_EQ(state(), session) << "the one that isn't back yet keeps its reading";
    EXPECT_TRUE(press(is.device, is.open) && opened(is.id));
    controls->addDevice(is.type, {"other", "Other"});
    controls->addDevice(is.type, {"new", "New"});
    pass(1s);
    EXPECT_TRUE(shown("Other") && shown("New"));
    EXPECT_NE(button(is.device, is.close), nullptr) << "still open";
    EXPECT_EQ(readings(), 3u);
    EXPECT_TRUE(press("Other", is.open) && opened("other"));
}

TEST_P(CapturePagesTests, whatCantBeListedIsToldAndChangesNothing) {
    // What an earlier look found stands, and so does an earlier denial.
    model->change([&](SessionState& changed) {
        changed.*is.denied = true;
        if (audio)
            changed.microphones = {{.id = is.id, .name = is.device, .peak = -20}};
        else
            changed.cameras = {{.id = is.id, .name = is.device, .answer = ManualAnswer::works}};
    });
    const SessionState session = state();
    struct {
        CaptureList::Fault fault;
        std::string words;
    } const faults[] = {{CaptureList::Fault::noService, audio ? "sound service" : "doesn't answer"},
                        {CaptureList::Fault::noDriver, "no driver"}};
    for (const auto& [fault, words] : faults) {
        controls->failList(is.type, fault);
        openPage();
        const QStringList lines =
            shownTexts(view.get()).filter("Couldn't list the " + QString(audio ? "mic" : "cam"));
        ASSERT_EQ(lines.size(), 1);
        EXPECT_TRUE(lines[0].contains(QString::fromStdString(words))) << lines[0].toStdString();
        EXPECT_FALSE(shown(noneFound) || shown(settings) || shown(is.device));
        expectWhole();
        pass(5s);
        EXPECT_EQ(state(), session);
    }
    controls->failList(is.type, std::nullopt);
    controls->addDevice(is.type, {"new", "New"});
    controls->removeDevice(is.type, is.id);
    pass(1s);
    EXPECT_TRUE(shown("New") && state().*is.listed && !(state().*is.denied));
    EXPECT_EQ(readings(), 2u) << "one that isn't back yet keeps its reading";
    openPage();
    EXPECT_EQ(readings(), 1u);
}

TEST_P(CapturePagesTests, aListThatIsLostWhileAPageIsOpenComesBack) {
    openWithAnother();
    const SessionState session = state();
    for (const bool byPress : {false, true}) {
        EXPECT_TRUE(press(is.device, is.open) && opened(is.id));
        controls->failList(is.type, CaptureList::Fault::noService);
        if (byPress)
            EXPECT_TRUE(press("Other", is.open));
        else
            pass(1s);
        EXPECT_EQ(shownTexts(view.get()).filter("Couldn't list the").size(), 1);
        EXPECT_FALSE(shown(is.device));
        EXPECT_TRUE(released(is.id));
        EXPECT_EQ(state(), session) << "no device has failed";
        controls->failList(is.type, std::nullopt);
        pass(1s);
        EXPECT_TRUE(shown(is.device) && shown("Other"));
        EXPECT_EQ(state(), session);
    }
}

TEST_P(CapturePagesTests, aFaultThatComesToLightLaterIsTold) {
    openPage();
    const auto attempt = [this](std::optional<OpenFault> fault) {
        controls->failOpening(is.id, fault);
        EXPECT_TRUE(press(is.device, is.open));
        // The capture queue tells in its own time.
        for (int i = 0; i < 2000 && fault && button(is.device, is.close); ++i) {
            std::this_thread::sleep_for(1ms);
            pass(250ms);
        }
    };
    const SessionState before = state();
    for (const auto& [fault, line] :
         {std::pair(OpenFault::busy,
                    "Couldn't use " + is.device +
                        ": another program or the system holds it. Close other programs, then try again."),
          std::pair(OpenFault::refused, "The system doesn't let Tessivo use " + is.device +
                                            ". Allow it in the settings, then try again.")}) {
        attempt(fault);
        EXPECT_TRUE(shown(line)) << line;
        EXPECT_NE(button(is.device, is.open), nullptr) << "it can be tried again";
        EXPECT_EQ(state(), before);
        expectWhole();
    }
    attempt(OpenFault::broken);
    EXPECT_TRUE(failed());
    EXPECT_EQ(shownTexts(view.get()).filter("The system doesn't").size(), 0)
        << "another attempt, another line";
    EXPECT_TRUE(shown((audio ? "Couldn't open: " : "Problem: ") + is.device));
    attempt(std::nullopt);
    EXPECT_TRUE(failed()) << "nothing has come yet";
    EXPECT_TRUE(audio ? controls->speak(is.id, -20) : controls->sendFrames(is.id, 4));
    pass(250ms);
    EXPECT_FALSE(failed()) << "it opens after all";
}

TEST_P(CapturePagesTests, withoutAPaneOfSettingsThereIsNoButtonForIt) {
    controls->setHasSettings(false);
    controls->setAccess(is.type, AuthorizationStatus::denied);
    openPage();
    EXPECT_TRUE(shown(is.kind + " access is off"));
    EXPECT_FALSE(shown(settings));
    EXPECT_TRUE(controls->openedURLs().empty());
    expectWhole();
}

TEST_P(CapturePagesTests, theTabKeyReachesTheRowsInTheOrderOfThePage) {
    openWithAnother();
    QStringList stops;
    for (QWidget* at = view->nextInFocusChain(); at != view.get(); at = at->nextInFocusChain())
        if (at->focusPolicy() & Qt::TabFocus && at->isVisible()) stops << accessibleNameOf(at);
    QStringList row{QString::fromStdString(is.open)};
    if (!audio) row << QStringLiteral("Picture looks right") << QStringLiteral("Problem");
    EXPECT_EQ(stops.mid(0, 2 * row.size()), row + row) << stops.join(", ").toStdString();
    EXPECT_EQ(stops.size(), 2 * row.size() + 2) << "and then the two controls below";
}

TEST_P(CapturePagesTests, leavingLetsGoAtOnceAlsoOfADeviceThatNeverOpens) {
    for (const auto opening :
         {std::optional(0ms), std::optional(5000ms), std::optional<std::chrono::milliseconds>()})
        for (const bool byHiding : {true, false}) {
            controls->setOpening(is.id, opening);
            openPage();
            EXPECT_TRUE(press(is.device, is.open) && opened(is.id));
            pass(1s);
            EXPECT_NE(button(is.device, is.close), nullptr);
            if (byHiding)
                view->hide();
            else
                close();
            EXPECT_TRUE(released(is.id));
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
        EXPECT_TRUE(shown((audio ? "Couldn't open: " : "Problem: ") + is.device));
        EXPECT_EQ(shown("Too quiet so far"), audio);
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

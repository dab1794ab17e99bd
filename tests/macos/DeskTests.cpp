#include "kit/support/Files.h"
#include "platform/CapturedFacts.h"
#include "platform/macos/MacCaptureDevices.h"
#include "platform/macos/MacDesktop.h"
#include "platform/macos/MacPersonalSettings.h"
#include "platform/macos/MacPlatform.h"
#include "tests/TemporaryFolder.h"
#include "tests/macos/Cocoa.h"
#include "tests/macos/MacFixture.h"

#include <QGuiApplication>
#include <QScreen>
#include <QThread>
#include <QWindow>
#include <thread>
#include <unistd.h>

namespace tessivo {
namespace {

using MacPersonTest = Mac;

TEST_F(MacPersonTest, isSpokenToInALanguageOfTheirsThatWeSpeak) {
    const std::pair<std::vector<std::string>, const char*> rows[] = {
        {{"es-MX", "en-US"}, "es"},
        {{"de-CH", "es"}, "es"},
        {{"en-GB", "es"}, "en"},
        {{"fr", "de"}, "en"},
        {{}, "en"},
    };
    for (const auto& [languages, expected] : rows) {
        system.languages = languages;
        EXPECT_EQ(MacPersonalSettings().language(), expected);
    }
    EXPECT_EQ(MacPersonalSettings().region(), "");
    system.locale = "es_MX@calendar=gregorian";
    EXPECT_EQ(MacPersonalSettings().region(), "es_MX@calendar=gregorian");
}

TEST_F(MacPersonTest, hasResourcesWhereThereIsABundleWithThem) {
    EXPECT_EQ(MacPersonalSettings().resources(), std::nullopt);
    const std::string folder = "/Applications/Tessivo \xC3\xB1.app/Contents/Resources";
    system.resources["TessivoKit_TessivoKit.bundle"] = folder + "/TessivoKit_TessivoKit.bundle";
    EXPECT_EQ(makePersonalSettings()->resources(), folder);
    system.resources["TessivoKit_TessivoKit.bundle"] = "/" + std::string(5000, 'x');
    EXPECT_EQ(MacPersonalSettings().resources(), std::nullopt);
}

class MacPrivacyTest : public Mac {
protected:
    MacPrivacyTest() { StandInCocoa::reset(); }

    StandInCocoa& cocoa = StandInCocoa::shared();
};

TEST_F(MacPrivacyTest, everyAnswerOfTheSystemIsACaseOfItsOwn) {
    MacCaptureDevices devices;
    using enum AuthorizationStatus;
    const AuthorizationStatus rows[] = {notDetermined, restricted, denied, authorized};
    for (int number = 0; number < 4; ++number) {
        cocoa.access[MediaType::audio] = number;
        EXPECT_EQ(devices.authorizationStatus(MediaType::audio), rows[number]);
        EXPECT_EQ(devices.authorizationStatus(MediaType::video), notDetermined);
    }
    for (const int unknown : {-1, 4, 1000})
        EXPECT_EQ(MacCaptureDevices::status(unknown), denied);
}

TEST_F(MacPrivacyTest, theAnswerComesOnTheMainThreadAndMayComeLate) {
    std::vector<bool> answers;
    const auto ask = [&](MacCaptureDevices& devices) {
        devices.requestAccess(MediaType::audio, [&](bool granted) {
            EXPECT_EQ(QThread::currentThread(), QCoreApplication::instance()->thread());
            answers.push_back(granted);
        });
    };
    const auto answer = [&](bool granted) {
        std::thread([&] { cocoa.questions.back()(granted); }).join();
        EXPECT_TRUE(answers.empty());
        QCoreApplication::processEvents();
    };
    {
        MacCaptureDevices devices;
        ask(devices);
        answer(true);
        EXPECT_EQ(answers, std::vector{true});
        answers.clear();
        ask(devices);
    }
    // Whoever asked guards itself; all that was asked of is gone by now.
    answer(false);
    cocoa.questions.clear();
    QCoreApplication::processEvents();
}

TEST_F(MacPrivacyTest, nothingOpensUnlessItIsAllowed) {
    MacCaptureDevices devices;
    for (const MediaType type : {MediaType::audio, MediaType::video})
        for (const int number : {0, 1, 2}) {
            cocoa.access[type] = number;
            EXPECT_EQ(devices.makeSession(type, "any", std::make_shared<CaptureDelegate>()), nullptr);
        }
}

class MacDesktopTest : public Mac {
protected:
    MacDesktopTest() { StandInCocoa::reset(); }

    StandInCocoa& cocoa = StandInCocoa::shared();
    MacDesktop desktop;
};

TEST_F(MacDesktopTest, takesItsPaperFromThePrintSettings) {
    EXPECT_EQ(desktop.paper(), std::nullopt);
    const std::tuple<double, double, std::optional<Paper>> rows[] = {
        {595, 842, Paper::a4},      {842, 595, Paper::a4}, {842, 1191, Paper::a4}, {612, 792, Paper::letter},
        {612, 1008, Paper::letter}, {0, 0, std::nullopt},  {298, 420, Paper::a4},  {252, 360, std::nullopt},
    };
    for (const auto& [width, height, expected] : rows) {
        system.paper = {width, height};
        EXPECT_EQ(desktop.paper(), expected) << width;
    }
    system.paper = {595, 842};
    const int before = system.calls();
    desktop.paper();
    const int calls = system.calls() - before;
    for (int call = 0; call < calls; ++call) {
        system.failCall(system.calls() + call);
        EXPECT_EQ(desktop.paper(), std::nullopt);
        EXPECT_EQ(system.held(), "") << call;
    }
}

TEST_F(MacDesktopTest, coversAScreensWholeFrame) {
    EXPECT_EQ(MacDesktop::flipped({0, 0, 1512, 982}, 982), QRectF(0, 0, 1512, 982));
    EXPECT_EQ(MacDesktop::flipped({1512, -300, 2560, 1440}, 982),
              QRectF(1512, -158, 2560, 1440)); // beside it
    QWindow window;
    window.setFlags(Qt::FramelessWindowHint);
    QScreen& screen = *QGuiApplication::primaryScreen();
    desktop.coverScreen(window, screen);
    EXPECT_EQ(cocoa.covered, QRectF(screen.geometry()));
    EXPECT_EQ(window.geometry(), screen.geometry());
    EXPECT_TRUE(window.isVisible());
    EXPECT_NE(window.windowState(), Qt::WindowFullScreen);
}

TEST_F(MacDesktopTest, offersFilesOfThePanelsKinds) {
    cocoa.files = {"/a.json", "/b.JSON", "/c.pdf", "/json", "/d.json.txt"};
    const auto chosen = desktop.openFiles({.message = "Choose", .folder = "", .extensions = {"json"}});
    EXPECT_EQ(chosen, (std::vector<std::filesystem::path>{"/a.json", "/b.JSON"}));
    EXPECT_EQ(cocoa.panelMessage, "Choose");
    EXPECT_EQ(desktop.openFiles({})->size(), 5u);
}

using MacPlatformTest = Mac;

TEST_F(MacPlatformTest, isWhole) {
    StandInCocoa::reset();
    const auto platform = makePlatform();
    EXPECT_EQ(platform->wordingService().availability(), WordingAvailability::unsupported);
    EXPECT_EQ(platform->folders().applicationSupport().at(0).filename(), "Tessivo");
    platform->defaults().setText("notes", "kept");
    EXPECT_EQ(system.storedPreferences.begin()->first.first, "example.tessivo.Tessivo");
    const TemporaryFolder folder;
    EXPECT_THROW(CapturedFacts::read(folder.path(), nullptr), std::runtime_error);

    // Every write goes to the drive itself, where the volume can.
    for (const int fault : {0, ENOTSUP}) {
        system.fullSyncFault = fault;
        Files::writeAtomically(folder / "file", "bytes");
        EXPECT_EQ(bytesOf(folder / "file"), "bytes");
    }
    EXPECT_GE(system.fullSyncs, 2);
    system.fullSyncFault = EIO;
    EXPECT_THROW(Files::writeAtomically(folder / "file", "other"), std::system_error);
    EXPECT_EQ(bytesOf(folder / "file"), "bytes");
    Files::setSync(::fsync);
}

} // namespace
} // namespace tessivo

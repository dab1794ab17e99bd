#include "platform/macos/MacCaptureDevices.h"
#include "platform/macos/MacPersonalSettings.h"
#include "tests/macos/MacFixture.h"
#include "tests/macos/system/Cocoa.h"

#include <QCoreApplication>
#include <QThread>
#include <thread>

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

} // namespace
} // namespace tessivo

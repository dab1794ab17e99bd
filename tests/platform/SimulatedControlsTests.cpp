#include "app/readers/Readers.h"
#include "platform/simulated/ManualScheduler.h"
#include "platform/simulated/SimulatedControls.h"
#include "tests/TemporaryFolder.h"

#include <future>
#include <gmock/gmock.h>

using namespace tessivo;
using namespace std::chrono_literals;
using testing::ElementsAre;

namespace {

using Form = SimulatedControls::JackForm;

/// A simulated Mac, its controls, and what the application's readers make of it.
class SimulatedMacTests : public testing::Test {
protected:
    explicit SimulatedMacTests(const char* file = "macbook-air-m2.json")
        : mac(loadMachineFile(std::filesystem::path(TESSIVO_MACHINES) / file), clock), controls(mac) {}

    std::vector<std::string> usbNames() {
        std::vector<std::string> names;
        for (const auto& device : readUSBDevices(mac.registry()))
            names.push_back(device.name);
        return names;
    }
    std::optional<AudioOutputInfo> jack() {
        return HeadphoneDetect::find(readAudioOutputs(mac.audioObjects()));
    }
    std::vector<WiredInterface> ports() {
        return EthernetCheck::builtInPorts(readWiredInterfaces(mac.registry()));
    }

    ManualScheduler clock;
    SimulatedPlatform mac;
    SimulatedControls controls;
};

class SimulatedMini : public SimulatedMacTests {
protected:
    SimulatedMini() : SimulatedMacTests("mac-mini-m4.json") {}
};

class SimulatedPro : public SimulatedMacTests {
protected:
    SimulatedPro() : SimulatedMacTests("macbook-pro-t2-worn.json") {}
};

TEST_F(SimulatedMacTests, aBrokenReadingFailsAndAMendedOneComesBack) {
    const auto whole = readMachineInfo(mac.machineFacts(), mac.registry());
    ASSERT_TRUE(whole.serial && whole.chip && whole.storageBytes);
    for (const auto reading : allCases<SimulatedReading>())
        controls.breakReading(reading);
    const auto broken = readMachineInfo(mac.machineFacts(), mac.registry());
    EXPECT_EQ(broken.modelID, "Unknown");
    EXPECT_EQ(broken.osVersion, "macOS 15.3.1");
    EXPECT_FALSE(broken.serial || broken.chip || broken.storageBytes);
    EXPECT_EQ(readBattery(mac.registry(), mac.powerSources()).source, BatteryReading::Source::none);
    EXPECT_TRUE(readAudioOutputs(mac.audioObjects()).empty());
    EXPECT_TRUE(readWiredInterfaces(mac.registry()).empty());
    for (const auto reading : allCases<SimulatedReading>())
        controls.mendReading(reading);
    EXPECT_EQ(readMachineInfo(mac.machineFacts(), mac.registry()), whole);
}

TEST_F(SimulatedMacTests, anUnpluggedHubTakesWhatHangsBehindItAndNothingElse) {
    controls.plugUSB("Hub", 1507, 1552, 0x14100000, 9);
    controls.plugUSB("Keyboard", 1452, 592, 0x14120000);
    controls.plugUSB("Deep stick", 1921, 21904, 0x14124000);
    controls.plugUSB("Other port", 1921, 21905, 0x14200000);
    EXPECT_THAT(usbNames(), ElementsAre("Hub", "Keyboard", "Deep stick", "Other port"));
    EXPECT_TRUE(controls.unplugUSB(0x14100000));
    EXPECT_THAT(usbNames(), ElementsAre("Other port"));
    EXPECT_FALSE(controls.unplugUSB(0x14100000));
    controls.plugUSB({});
    EXPECT_THAT(usbNames(), ElementsAre("USB device", "Other port"));
}

TEST_F(SimulatedMini, aLinkRisesAndDropsOnItsInterfaceAlone) {
    ASSERT_EQ(ports().size(), 1u);
    EXPECT_FALSE(ports()[0].linkActive);
    EXPECT_TRUE(controls.raiseLink("en0", 2'500'000'000));
    EXPECT_TRUE(ports()[0].linkActive);
    EXPECT_EQ(ports()[0].speedText(), "2.5 Gb/s");
    EXPECT_TRUE(controls.dropLink("en0"));
    EXPECT_FALSE(ports()[0].linkActive);
    EXPECT_FALSE(controls.raiseLink("en77", 1));
}

TEST_F(SimulatedPro, headphonesChangeTheDataSourceAndGiveItBack) {
    EXPECT_FALSE(jack());
    controls.insertHeadphones(Form::dataSource);
    ASSERT_TRUE(jack());
    EXPECT_EQ(jack()->dataSource, "hdpn");
    EXPECT_EQ(jack()->dataSourceName, "Headphones");
    controls.pullHeadphones();
    EXPECT_FALSE(jack());
    EXPECT_EQ(readAudioOutputs(mac.audioObjects()).at(0).dataSource, "ispk");
}

TEST_F(SimulatedMacTests, headphonesAsADeviceOfTheirOwnComeAndGo) {
    const auto before = readAudioOutputs(mac.audioObjects());
    controls.insertHeadphones(Form::separateDevice);
    ASSERT_TRUE(jack());
    EXPECT_EQ(jack()->name, "External Headphones");
    EXPECT_EQ(readDefaultOutputName(mac.audioObjects()), "External Headphones");
    controls.pullHeadphones();
    EXPECT_EQ(readAudioOutputs(mac.audioObjects()), before);
    EXPECT_EQ(readDefaultOutputName(mac.audioObjects()), "MacBook Air Speakers");
}

TEST_F(SimulatedMacTests, tonesAreRecordedWithTheirDeviceAndTheirSides) {
    const auto engine = mac.toneOutput().makeEngine();
    EXPECT_EQ(engine->outputFormat().channelCount, 2u);
    engine->schedule({0, 0.3f}, {0, 0}, 48000);
    EXPECT_TRUE(engine->start());
    engine->schedule({0, 0.3f}, {0, 0}, 48000);
    controls.insertHeadphones(Form::separateDevice);
    EXPECT_TRUE(engine->setDevice(jack()->id));
    EXPECT_FALSE(engine->setDevice(999));
    engine->schedule({0, 0, 0}, {0, 0, 0.3f}, 44100);
    controls.failEngine(true);
    EXPECT_FALSE(engine->start());
    EXPECT_FALSE(engine->isRunning());
    EXPECT_THAT(controls.tones(), ElementsAre(ScheduledTone{82, true, false, 2, 48000, false},
                                              ScheduledTone{82, true, false, 2, 48000, true},
                                              ScheduledTone{jack()->id, false, true, 3, 44100, true}));
}

TEST_F(SimulatedMacTests, batteryFiguresReachTheReading) {
    controls.setBattery("NominalChargeCapacity", 3000);
    controls.setBattery("CycleCount", {});
    controls.setPowerSource("BatteryHealthCondition", "Service Recommended");
    auto reading = readBattery(mac.registry(), mac.powerSources());
    EXPECT_EQ(reading.fullChargeCapacity, 3000);
    EXPECT_FALSE(reading.cycleCount);
    EXPECT_TRUE(reading.conditionWarns());
    controls.removeBattery();
    reading = readBattery(mac.registry(), mac.powerSources());
    EXPECT_FALSE(reading.present);
    controls.setBattery("BatteryInstalled", true);
    controls.setPowerSource("Type", "InternalBattery");
    EXPECT_TRUE(readBattery(mac.registry(), mac.powerSources()).present);
}

TEST_F(SimulatedMacTests, theEnrollmentToolAnswersIsMissingFloodsOrHangs) {
    const auto read = [this](std::stop_token stop = {}) {
        return readEnrollmentStatus(mac.systemTools(), stop);
    };
    EXPECT_FALSE(read()->isManaged());
    controls.setEnrolled(true);
    EXPECT_TRUE(read()->isManaged());
    controls.setEnrollmentAnswer("Enrolled via DEP: No\nMDM enrollment: No\n", 1);
    EXPECT_FALSE(read());
    controls.removeEnrollmentTool();
    EXPECT_FALSE(read());
    controls.floodEnrollmentTool();
    EXPECT_FALSE(read());
    const auto flood = mac.systemTools().run(SimulatedControls::enrollmentTool, {}, {});
    ASSERT_TRUE(flood);
    EXPECT_EQ(flood->standardOutput.size(), SystemTools::largestOutput);

    controls.hangEnrollmentTool();
    std::stop_source stop;
    auto stopped = std::async(std::launch::async, read, stop.get_token());
    EXPECT_EQ(stopped.wait_for(20ms), std::future_status::timeout);
    stop.request_stop();
    EXPECT_FALSE(stopped.get());
    auto answered = std::async(std::launch::async, read, std::stop_token());
    EXPECT_EQ(answered.wait_for(20ms), std::future_status::timeout);
    controls.setEnrolled(false);
    EXPECT_FALSE(answered.get()->isManaged());
}

TEST_F(SimulatedMacTests, fingersReachTheirHandlersOnlyWhileTheyAreWatched) {
    std::vector<FingerPosition> touched;
    std::vector<std::string> words;
    controls.touch({{0.5, 0.5}});
    mac.fingerTouches().start({[&](const auto& fingers) { touched = fingers; },
                               [&](const std::string& word) {
                                   words.push_back(word);
                                   mac.fingerTouches().stop();
                               }});
    EXPECT_TRUE(controls.trackpadIsWatched());
    controls.touch({{0.25, 1}, {1, 0}});
    controls.gesture("force");
    controls.gesture("zoom");
    EXPECT_THAT(touched, ElementsAre(FingerPosition{0.25, 1}, FingerPosition{1, 0}));
    EXPECT_THAT(words, ElementsAre("force"));
    EXPECT_FALSE(controls.trackpadIsWatched());
}

TEST_F(SimulatedMacTests, theDesktopAndTheUpdateFrameworkAreRecorded) {
    mac.desktop().openURL("https://example.org/");
    mac.desktop().setPasteboardText("report");
    controls.setFeedURL("http://127.0.0.1:1/feed");
    mac.updateFramework().checkForUpdates();
    EXPECT_THAT(controls.openedURLs(), ElementsAre("https://example.org/"));
    EXPECT_EQ(controls.pasteboardText(), "report");
    EXPECT_EQ(mac.updateFramework().feedURL(), "http://127.0.0.1:1/feed");
    EXPECT_EQ(controls.updateChecks(), 1u);
}

TEST_F(SimulatedMacTests, theWordingModelAnswersFailsAndWaitsAsScripted) {
    EXPECT_EQ(mac.wordingService().availability(), WordingAvailability::unsupported);
    auto& wording = controls.wording();
    wording.setAvailability(WordingAvailability::available);
    const auto model = mac.wordingService().makeModel();
    EXPECT_EQ(model->rewrite("be brief", "as it is"), "as it is");
    wording.setAnswers({{"first"}, {.text = "no such luck", .fails = true}, {.text = "late", .waits = true}});
    EXPECT_EQ(model->rewrite("", ""), "first");
    EXPECT_THROW(model->rewrite("", ""), std::runtime_error);
    auto late = std::async(std::launch::async, [&] { return model->rewrite("", "x"); });
    EXPECT_EQ(late.wait_for(20ms), std::future_status::timeout);
    wording.release();
    EXPECT_EQ(late.get(), "late");
    EXPECT_EQ(wording.calls().front().instructions, "be brief");
}

TEST(SimulatedStorage, aWriteThatFailsLeavesWhatWasThereAndAnIniFileLivesOn) {
    const TemporaryFolder folder;
    ManualScheduler clock;
    const auto file = folder.path() / "defaults.ini";
    const std::string bytes("{\"a\": 1}\0\xFF", 10);
    {
        SimulatedPlatform mac({}, clock, {file, {{folder.path()}}});
        SimulatedControls controls(mac);
        EXPECT_FALSE(mac.defaults().data("session"));
        mac.defaults().setData("session", bytes);
        mac.defaults().setText("notes", "größer\n«2»");
        controls.failDefaults(true);
        mac.defaults().setData("session", "lost");
        mac.defaults().setText("notes", "lost");
        EXPECT_EQ(mac.defaults().data("session"), bytes);
        EXPECT_EQ(controls.defaultsWrites(), 2u);
        EXPECT_THAT(mac.folders().applicationSupport(), ElementsAre(folder.path()));
    }
    SimulatedPlatform again({}, clock, {file, std::nullopt});
    EXPECT_EQ(again.defaults().data("session"), bytes);
    EXPECT_EQ(again.defaults().text("notes"), "größer\n«2»");
    ASSERT_EQ(again.folders().applicationSupport().size(), 1u);
    EXPECT_TRUE(std::filesystem::is_directory(again.folders().applicationSupport()[0]));
}

} // namespace

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
struct Mac {
    explicit Mac(const std::string& file = "macbook-air-m2.json")
        : platform(loadMachineFile(std::filesystem::path(TESSIVO_MACHINES) / file), clock) {}

    std::vector<std::string> usbNames() {
        std::vector<std::string> names;
        for (const auto& device : readUSBDevices(platform.registry()))
            names.push_back(device.name);
        return names;
    }
    std::vector<AudioOutputInfo> outputs() { return readAudioOutputs(platform.audioObjects()); }
    BatteryReading battery() { return readBattery(platform.registry(), platform.powerSources()); }
    MachineInfo machine() { return readMachineInfo(platform.machineFacts(), platform.registry()); }

    ManualScheduler clock;
    SimulatedPlatform platform;
    SimulatedControls controls{platform};
};

TEST(SimulatedMac, aBrokenReadingFailsAndAMendedOneComesBack) {
    Mac mac;
    const MachineInfo whole = mac.machine();
    ASSERT_TRUE(whole.serial && whole.chip && whole.storageBytes);
    for (const auto reading : allCases<SimulatedReading>())
        mac.controls.breakReading(reading);
    const MachineInfo broken{"Unknown", {}, {}, whole.memoryBytes, "macOS 15.3.1", {}};
    EXPECT_EQ(mac.machine(), broken);
    EXPECT_EQ(mac.battery().source, BatteryReading::Source::none);
    EXPECT_TRUE(mac.outputs().empty());
    EXPECT_TRUE(readWiredInterfaces(mac.platform.registry()).empty());
    for (const auto reading : allCases<SimulatedReading>())
        mac.controls.mendReading(reading);
    EXPECT_EQ(mac.machine(), whole);
}

TEST(SimulatedMac, anUnpluggedHubTakesWhatHangsBehindItAndNothingElse) {
    Mac mac;
    mac.controls.plugUSB("Hub", 1507, 1552, 0x14100000, 9);
    mac.controls.plugUSB("Keyboard", 1452, 592, 0x14120000);
    mac.controls.plugUSB("Deep stick", 1921, 21904, 0x14124000);
    mac.controls.plugUSB("Other port", 1921, 21905, 0x14200000);
    mac.controls.plugUSB({});
    EXPECT_THAT(mac.usbNames(), ElementsAre("USB device", "Hub", "Keyboard", "Deep stick", "Other port"));
    EXPECT_TRUE(mac.controls.unplugUSB(0x14100000));
    EXPECT_THAT(mac.usbNames(), ElementsAre("USB device", "Other port"));
    EXPECT_FALSE(mac.controls.unplugUSB(0x14100000));
}

TEST(SimulatedMac, headphonesComeAndGoInEitherForm) {
    const std::tuple<const char*, Form, const char*> rows[] = {
        {"macbook-pro-t2-worn.json", Form::dataSource, "hdpn"},
        {"macbook-air-m2.json", Form::separateDevice, "External Headphones"}};
    for (const auto& [file, form, sign] : rows) {
        Mac mac(file);
        const auto before = mac.outputs();
        const auto speakers = readDefaultOutputName(mac.platform.audioObjects());
        EXPECT_FALSE(HeadphoneDetect::find(before));
        mac.controls.insertHeadphones(form);
        const auto jack = HeadphoneDetect::find(mac.outputs());
        ASSERT_TRUE(jack) << file;
        EXPECT_EQ(jack->dataSource.value_or(jack->name), sign);
        EXPECT_EQ(readDefaultOutputName(mac.platform.audioObjects()), jack->name);
        mac.controls.pullHeadphones();
        EXPECT_EQ(mac.outputs(), before);
        EXPECT_EQ(readDefaultOutputName(mac.platform.audioObjects()), speakers);
    }
}

TEST(SimulatedMac, tonesAreRecordedWithTheirDeviceAndTheirSides) {
    Mac mac;
    const auto engine = mac.platform.toneOutput().makeEngine();
    engine->schedule({0, 0.3f}, {0, 0}, 48000);
    EXPECT_TRUE(engine->start());
    engine->schedule({0, 0.3f}, {0, 0}, 48000);
    mac.controls.insertHeadphones(Form::separateDevice);
    const std::uint32_t jack = HeadphoneDetect::find(mac.outputs())->id;
    EXPECT_TRUE(engine->setDevice(jack));
    EXPECT_FALSE(engine->setDevice(999));
    engine->schedule({0, 0, 0}, {0, 0, 0.3f}, 44100);
    mac.controls.failEngine(true);
    EXPECT_FALSE(engine->start());
    EXPECT_FALSE(engine->isRunning());
    EXPECT_THAT(mac.controls.tones(), ElementsAre(ScheduledTone{82, true, false, 2, 48000, false},
                                                  ScheduledTone{82, true, false, 2, 48000, true},
                                                  ScheduledTone{jack, false, true, 3, 44100, true}));
}

TEST(SimulatedMac, batteryFiguresReachTheReading) {
    Mac mac;
    mac.controls.setBattery("NominalChargeCapacity", 3000);
    mac.controls.setBattery("CycleCount", {});
    mac.controls.setPowerSource("BatteryHealthCondition", "Service Recommended");
    EXPECT_EQ(mac.battery().fullChargeCapacity, 3000);
    EXPECT_FALSE(mac.battery().cycleCount);
    EXPECT_TRUE(mac.battery().conditionWarns());
    mac.controls.removeBattery();
    EXPECT_FALSE(mac.battery().present);
    mac.controls.setBattery("BatteryInstalled", true);
    EXPECT_TRUE(mac.battery().present);
}

TEST(SimulatedMac, theEnrollmentToolAnswersIsMissingFloodsOrHangs) {
    Mac mac;
    const auto read = [&](const StopToken& stop) {
        return readEnrollmentStatus(mac.platform.systemTools(), stop);
    };
    mac.controls.setEnrolled(true);
    EXPECT_TRUE(read({})->isManaged());
    mac.controls.removeEnrollmentTool();
    EXPECT_FALSE(read({}));
    mac.controls.floodEnrollmentTool();
    const auto flood = mac.platform.systemTools().run(SimulatedControls::enrollmentTool, {}, {});
    EXPECT_EQ(flood.value_or(ToolRun()).standardOutput.size(), SystemTools::largestOutput);

    mac.controls.hangEnrollmentTool();
    StopSource stop;
    auto stopped = std::async(std::launch::async, read, stop.token());
    auto answered = std::async(std::launch::async, read, StopToken());
    EXPECT_EQ(stopped.wait_for(20ms), std::future_status::timeout);
    stop.requestStop();
    EXPECT_FALSE(stopped.get());
    EXPECT_EQ(answered.wait_for(20ms), std::future_status::timeout);
    mac.controls.setEnrolled(false);
    EXPECT_FALSE(answered.get()->isManaged());
}

TEST(SimulatedStorage, aWriteThatFailsLeavesWhatWasThereAndAnIniFileLivesOn) {
    const TemporaryFolder folder;
    ManualScheduler clock;
    const std::string bytes("{\"a\": 1}\0\xFF", 10);
    {
        SimulatedPlatform mac({}, clock, {folder / "defaults.ini", {{folder.path()}}});
        mac.defaults().setData("session", bytes);
        EXPECT_FALSE(mac.defaults().setText("notes", "größer\n«2»"));
        SimulatedControls(mac).failDefaults(true);
        EXPECT_EQ(mac.defaults().setData("session", "lost"), std::errc::no_space_on_device);
        EXPECT_EQ(mac.defaults().setText("notes", "lost"), std::errc::no_space_on_device);
        EXPECT_EQ(mac.defaults().data("session"), bytes);
        EXPECT_THAT(mac.folders().applicationSupport(), ElementsAre(folder.path()));
    }
    SimulatedPlatform again({}, clock, {folder / "defaults.ini", std::nullopt});
    EXPECT_EQ(again.defaults().data("session"), bytes);
    EXPECT_EQ(again.defaults().text("notes"), "größer\n«2»");
    EXPECT_TRUE(std::filesystem::is_directory(again.folders().applicationSupport().at(0)));
}

} // namespace

#include "app/readers/MachineCapture.h"
#include "app/readers/Readers.h"
#include "kit/support/PropertyJson.h"
#include "platform/CapturedFacts.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/simulated/ManualScheduler.h"
#include "platform/simulated/SimulatedPlatform.h"
#include "tests/platform/linux/CapturedTree.h"

#include <gmock/gmock.h>

namespace tessivo {
namespace {

using testing::ElementsAre;

struct Mac {
    explicit Mac(const std::string& json) : platform(MachineFile::decode(json), clock) {}

    ManualScheduler clock;
    SimulatedPlatform platform;
};

TEST(Readers, anInterfaceIsWhatItsPropertiesSay) {
    Mac mac(R"({"registry": {"IONetworkInterface": [
        {"class": "I", "properties": {"BSD Name": "en3", "IOBuiltin": true},
         "parent": {"class": "C", "properties": {"IOLinkStatus": 3, "IOLinkSpeed": 1000000000}}},
        {"class": "I", "properties": {"BSD Name": "en0", "IOBuiltin": true},
         "parent": {"class": "C", "properties": {"IOLinkStatus": -1, "IOLinkSpeed": -1}}},
        {"class": "I", "properties": {"BSD Name": "en1", "IOBuiltin": 1}, "parent": {"class": "C"}},
        {"class": "I", "properties": {"BSD Name": "en4"}},
        {"class": "I", "properties": {"BSD Name": 5}, "parent": {"class": "C"}},
        {"class": "I", "parent": {"class": "C"}}]}})");
    EXPECT_THAT(readWiredInterfaces(mac.platform.registry()),
                ElementsAre(WiredInterface{"en0", true, "C", "I", false, {}},
                            WiredInterface{"en1", false, "C", "I", false, {}},
                            WiredInterface{"en3", true, "C", "I", true, 1'000'000'000}));
    EXPECT_TRUE(readWiredInterfaces(Mac("{}").platform.registry()).empty());
}

TEST(Readers, aDeviceWithoutPropertiesIsPassedOver) {
    Mac mac(R"({"registry": {"IOUSBHostDevice": [{"properties": {"locationID": 4294967295}}, {},
        {"properties": {"locationID": 1, "USB Product Name": "Stick"}}]}})");
    EXPECT_THAT(readUSBDevices(mac.platform.registry()),
                ElementsAre(USBDevice{.name = "Stick", .locationID = 1},
                            USBDevice{.name = "USB device", .locationID = 4294967295}));
    EXPECT_TRUE(readUSBDevices(Mac("{}").platform.registry()).empty());
}

TEST(Readers, theFirstInternalBatterySpeaksForAll) {
    Mac mac(R"({"registry": {"AppleSmartBattery": [{}, {"properties": {"BatteryInstalled": true}}]},
        "powerSources": ["InternalBattery", {"Type": "UPS", "BatteryHealth": "Poor"},
                         {"Type": "InternalBattery", "BatteryHealth": "Good"},
                         {"Type": "InternalBattery", "BatteryHealth": "Poor"}]})");
    EXPECT_EQ(readBattery(mac.platform.registry(), mac.platform.powerSources()),
              (BatteryReading{
                  .present = true, .condition = "Normal", .source = BatteryReading::Source::powerSources}));
}

TEST(Readers, aMachineTakesItsFallbacks) {
    const std::pair<const char*, MachineInfo> rows[] = {
        {R"({"operatingSystem": {"major": 15, "minor": 3, "patch": 1}, "physicalMemory": 8589934592,
             "sysctl": {"hw.model": "Mac14,2\u0000x", "machdep.cpu.brand_string": "Apple M2",
                        "kern.osversion": "24D70"},
             "registry": {"IOPlatformExpertDevice": [{"properties": {"IOPlatformSerialNumber": ""}}]},
             "startupVolumeTotalCapacity": 245107195904})",
         {"Mac14,2", "", "Apple M2", 8'589'934'592, "macOS 15.3.1 (24D70)", 245'107'195'904}},
        {R"({"operatingSystem": {"major": 15, "minor": 0, "patch": 0},
             "sysctl": {"hw.model": "\u0000Mac14,2", "kern.osversion": ""},
             "registry": {"IOPlatformExpertDevice": [{"properties": {"IOPlatformSerialNumber": 7}}]}})",
         {"Unknown", {}, {}, 0, "macOS 15.0", {}}}};
    for (const auto& [json, machine] : rows) {
        Mac mac{json};
        EXPECT_EQ(readMachineInfo(mac.platform.machineFacts(), mac.platform.registry()), machine) << json;
    }
}

TEST(Readers, audioOutputsComeInThePlatformsOrderWithWhatCanBeRead) {
    Mac mac(R"({"audio": {"defaultOutput": 20, "devices": [
        {"id": 40, "properties": {"stm#": 8, "tran": "bltn", "jack": 0, "ssrc": "hdpn", "lscn": {"hdpn": "A"}}},
        {"id": 30, "properties": {"stm#": 0, "lnam": "Microphone"}},
        {"id": 31, "properties": {"lnam": "Streams unread"}},
        {"id": 20, "properties": {"stm#": 4, "tran": "usb ", "jack": 2, "ssrc": "line", "lnam": "Headset"}}]}})");
    EXPECT_THAT(readAudioOutputs(mac.platform.audioObjects()),
                ElementsAre(AudioOutputInfo{40, "Output", true, "hdpn", "A", false},
                            AudioOutputInfo{20, "Headset", false, "line", std::nullopt, true}));
    EXPECT_EQ(readDefaultOutputName(mac.platform.audioObjects()), "Headset");
    for (const char* json : {"{}", R"({"audio": {"defaultOutput": 7}})", R"({"audio": {"devices": []}})"}) {
        Mac silent{json};
        EXPECT_TRUE(readAudioOutputs(silent.platform.audioObjects()).empty());
        EXPECT_EQ(readAudioOutput(silent.platform.audioObjects(), 7), std::nullopt);
        EXPECT_EQ(readDefaultOutputName(silent.platform.audioObjects()), std::nullopt);
    }
}

TEST(MachineCapture, aListThatCouldntBeReadIsLeftOut) {
    Mac unread{"{}"}, none{R"({"microphones": [], "cameras": []})"};
    const PropertyMap left = parsePropertyMap(captureMachine(unread.platform).encode()),
                      empty = parsePropertyMap(captureMachine(none.platform).encode());
    for (const char* kind : {"microphones", "cameras"}) {
        EXPECT_FALSE(left.contains(kind));
        EXPECT_EQ(empty.at(kind), Property(PropertyList{}));
    }
}

TEST(MachineCapture, whatIsReadIsWrittenAgainToTheLetter) {
    std::vector<std::pair<std::string, std::string>> files;
    for (const auto& entry : std::filesystem::directory_iterator(TESSIVO_MACHINES))
        files.emplace_back(entry.path().filename(), prettyText(parsePropertyMap(bytesOf(entry.path()))));
    for (const auto& entry :
         std::filesystem::directory_iterator(std::filesystem::path(TESSIVO_TEST_DATA) / "trees")) {
        if (entry.path().extension() != ".tree") continue;
        const CapturedTree tree(entry.path().stem());
        const auto record = std::make_shared<SourceRecord>();
        const auto facts = CapturedFacts::read(tree.path(), record);
        MachineFile captured = captureFacts(*facts.machineFacts, *facts.registry, *facts.powerSources);
        captured.sources = record->sources();
        captured.sourcesLeftOut = record->leftOut();
        files.emplace_back(entry.path().filename(), captured.encode());
    }
    // Codes that aren't letters, and numbers of every kind.
    files.emplace_back("odd", R"({
  "audio": {
    "devices": [
      {
        "id": 4294967295,
        "properties": {
          "lscn": {
            "0xc8000001": "Optical"
          },
          "ssrc": "0xc8000001",
          "tran": "\u0000\u0000\u0000\u0000"
        }
      }
    ]
  },
  "physicalMemory": 18446744073709551615,
  "registry": {
    "A": [
      {
        "class": "",
        "parent": {
          "class": "B",
          "parent": {
            "class": "C"
          }
        },
        "properties": {
          "empty": null,
          "fraction": 3.0,
          "list": [
            true,
            [],
            {}
          ],
          "whole": -9223372036854775808,
          "wide": 1.8446744073709552e+19
        }
      }
    ]
  }
}
)");
    for (const auto& [name, text] : files)
        EXPECT_EQ(MachineFile::decode(text).encode(), text) << name;
    EXPECT_GE(files.size(), 35u);
}

TEST(MachineCapture, aReplayedComputerReadsLikeItself) {
    for (const char* name :
         {"macbook-pro-t2", "laptop-two-batteries", "desktop-raid", "macbook-air-m2", "network", "hostile"}) {
        SCOPED_TRACE(name);
        const CapturedTree tree(name);
        LinuxPlatform computer(tree.path());
        const std::string captured = captureMachine(computer).encode();
        ManualScheduler clock;
        SimulatedPlatform replayed(MachineFile::decode(captured), clock);

        EXPECT_EQ(readMachineInfo(replayed.machineFacts(), replayed.registry()),
                  readMachineInfo(computer.machineFacts(), computer.registry()));
        EXPECT_EQ(readBattery(replayed.registry(), replayed.powerSources()),
                  readBattery(computer.registry(), computer.powerSources()));
        EXPECT_EQ(readUSBDevices(replayed.registry()), readUSBDevices(computer.registry()));
        EXPECT_EQ(readWiredInterfaces(replayed.registry()), readWiredInterfaces(computer.registry()));
        EXPECT_EQ(captureMachine(replayed).encode(), captured);
    }
}

} // namespace
} // namespace tessivo

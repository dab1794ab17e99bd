#include "kit/support/Json.h"
#include "kit/support/PropertyJson.h"
#include "platform/simulated/ManualScheduler.h"
#include "platform/simulated/SimulatedPlatform.h"
#include "tests/TemporaryFolder.h"

#include <gmock/gmock.h>

using namespace tessivo;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

std::string faultOf(const std::string& json) {
    try {
        MachineFile::decode(json);
    } catch (const DecodingError& error) {
        return error.what();
    }
    return "none";
}

TEST(MachineFile, aFaultIsNamedWithItsPath) {
    const struct {
        const char* json;
        const char* fault;
    } rows[] = {
        {R"({"sysctl": []})", "sysctl: not an object but a list"},
        {R"({"sysctl": {"hw.model": 5}})", "sysctl.hw.model: not a text but a number"},
        {R"({"operatingSystem": {"major": 15, "minor": 3}})", "operatingSystem.patch: missing"},
        {R"({"physicalMemory": -1})", "physicalMemory: out of range"},
        {R"({"physicalMemory": 18446744073709551616})", "physicalMemory: out of range"},
        {R"({"registry": {"IOUSBHostDevice": [{}, {"properties": []}]}})",
         "registry.IOUSBHostDevice[1].properties: not an object but a list"},
        {R"({"registry": {"A": [{"parent": {"class": 1}}]}})",
         "registry.A[0].parent.class: not a text but a number"},
        {R"({"powerSources": {}})", "powerSources: not a list but an object"},
        {R"({"tools": {"/usr/bin/profiles": {"output": ""}}})",
         "tools./usr/bin/profiles.exitStatus: missing"},
        {R"({"tools": {"t": {"exitStatus": 256}}})", "tools.t.exitStatus: out of range"},
        {R"({"audio": {"devices": [{"properties": {}}]}})", "audio.devices[0].id: missing"},
        {R"({"audio": {"devices": [{"id": 4294967296}]}})", "audio.devices[0].id: out of range"},
        {R"({"audio": {"devices": [{"id": 4, "properties": {"tran": "builtin"}}]}})",
         "audio.devices[0].properties.tran: not a code of four letters but \"builtin\""},
        {R"({"microphones": [{"localizedName": "Mic"}]})", "microphones[0].uniqueID: missing"},
        {R"({"cameras": [{"uniqueID": "c", "opens": 0}]})", "cameras[0].opens: not a boolean but a number"},
        {R"({"access": {"audio": "allowed"}})", "access.audio: unknown case \"allowed\""}};
    for (const auto& row : rows)
        EXPECT_EQ(faultOf(row.json), row.fault) << row.json;
}

TEST(MachineFile, whatTheFileLeavesOutIsAReadingThatFails) {
    for (const char* json : {"{}", R"({"sysctl": null, "future": [1], "registry": {"IOUSBHostDevice": null},
                       "audio": {"devices": null, "abcd": 1}})"}) {
        ManualScheduler clock;
        SimulatedPlatform mac(MachineFile::decode(json), clock);
        EXPECT_FALSE(mac.machineFacts().sysctlbyname("hw.model"));
        EXPECT_FALSE(mac.machineFacts().startupVolumeTotalCapacity());
        EXPECT_FALSE(mac.registry().matchingServices("AppleSmartBattery"));
        EXPECT_FALSE(mac.powerSources().descriptions());
        EXPECT_FALSE(mac.systemTools().run("/usr/bin/profiles", {}, {}));
        EXPECT_FALSE(
            mac.audioObjects().propertyDataSize({AudioObjects::systemObject, 0x64657623, 0x676C6F62}));
        EXPECT_FALSE(mac.captureDevices().devices(MediaType::audio).devices);
        EXPECT_EQ(mac.captureDevices().authorizationStatus(MediaType::video),
                  AuthorizationStatus::notDetermined);
    }
}

TEST(LoadMachineFile, everyFaultIsOneLineThatNamesTheFile) {
    const TemporaryFolder folder;
    const auto path = folder / "m.json";
    const auto fault = [](const std::filesystem::path& file) -> std::string {
        try {
            loadMachineFile(file);
        } catch (const std::runtime_error& error) {
            return error.what();
        }
        return "none";
    };
    EXPECT_THAT(fault(path), StartsWith(path.string() + ": "));
    EXPECT_THAT(fault(folder.path()), StartsWith(folder.path().string() + ": "));
    for (const std::string& bytes :
         {std::string(), std::string("{"), std::string("[]"), std::string("{\"a\": \"\xFF\"}"),
          std::string(100'000, '['), std::string(MachineFile::largestFile + 1, ' ')})
        EXPECT_THAT(fault(folder.write("m.json", bytes)),
                    AllOf(StartsWith(path.string() + ": "), Not(HasSubstr("\n"))));
    EXPECT_EQ(fault(folder.write("m.json", R"({"sysctl": {"hw.model": 5}})")),
              path.string() + ": sysctl.hw.model: not a text but a number");
    for (const auto& entry : std::filesystem::directory_iterator(TESSIVO_MACHINES))
        EXPECT_EQ(fault(entry.path()), "none");
}

} // namespace

#include "app/readers/MachineCapture.h"
#include "kit/report/HistoryStore.h"
#include "kit/report/ReportAssembler.h"
#include "kit/report/ReportText.h"
#include "platform/simulated/ManualScheduler.h"
#include "platform/simulated/SimulatedPlatform.h"
#include "probe/ProbeCommands.h"
#include "tests/TemporaryFolder.h"
#include "tests/macos/Cocoa.h"
#include "tests/macos/MacFixture.h"

namespace tessivo {
namespace {

struct Facts {
    SessionState session;
    std::vector<USBDevice> devices;
    std::vector<WiredInterface> interfaces;
    std::vector<AudioOutputInfo> outputs;
    std::optional<std::string> defaultOutput;

    bool operator==(const Facts&) const = default;
};

Facts read(const MachineFacts& facts, const Registry& registry, const PowerSources& powerSources,
           const AudioObjects& audio) {
    Facts out{SessionState(readMachineInfo(facts, registry), Date{0}), readUSBDevices(registry),
              readWiredInterfaces(registry), readAudioOutputs(audio), readDefaultOutputName(audio)};
    out.session.battery = readBattery(registry, powerSources);
    out.session.ethernet.emplace().record(out.interfaces);
    return out;
}

ConditionReport report(const Facts& facts) {
    ConditionReport out = ReportAssembler::make(facts.session, Date{0}, "1.0", "");
    out.id = {};
    return out;
}

class MachineFiles : public Mac, public testing::WithParamInterface<std::string> {};

TEST_P(MachineFiles, readThroughTheSystemLikeTheSimulation) {
    load(GetParam());
    const Facts mac = read(MacMachineFacts(), MacRegistry(), MacPowerSources(), MacAudioObjects());
    ManualScheduler clock;
    SimulatedPlatform simulated(loadMachineFile(std::filesystem::path(TESSIVO_MACHINES) / GetParam()), clock);
    const Facts expected = read(simulated.machineFacts(), simulated.registry(), simulated.powerSources(),
                                simulated.audioObjects());
    EXPECT_EQ(mac, expected);
    EXPECT_EQ(ReportText::text(report(mac), "UTC"), ReportText::text(report(expected), "UTC"));
    EXPECT_EQ(HistoryStore::encode(report(mac)), HistoryStore::encode(report(expected)));
}

/// What the support tool writes on a Mac replays as that Mac. Microphones and cameras are listed by Qt, which
/// the stand-in doesn't reach.
TEST_P(MachineFiles, areWrittenByTheSupportToolAsTheyAre) {
    load(GetParam());
    ManualScheduler clock;
    SimulatedPlatform simulated(loadMachineFile(std::filesystem::path(TESSIVO_MACHINES) / GetParam()), clock);
    MachineFile expected = captureMachine(simulated);
    for (const MediaType type : {MediaType::audio, MediaType::video})
        StandInCocoa::shared().access[type] =
            std::int64_t(simulated.captureDevices().authorizationStatus(type));
    testing::internal::CaptureStdout();
    EXPECT_EQ(ProbeCommands::run({"machine"}), 0);
    MachineFile written = MachineFile::decode(testing::internal::GetCapturedStdout());
    EXPECT_TRUE(written.sources.value().empty());
    written.sources.reset();
    for (MachineFile* file : {&written, &expected})
        file->microphones = file->cameras = std::nullopt;
    EXPECT_EQ(written.encode(), expected.encode());
}

INSTANTIATE_TEST_SUITE_P(All, MachineFiles, testing::ValuesIn(namesIn(TESSIVO_MACHINES)),
                         [](const auto& info) {
                             std::string name = std::filesystem::path(info.param).stem().string();
                             std::ranges::replace(name, '-', '_');
                             return name;
                         });

using EveryCall = Mac;

/// What a page that polls would ask, one after another.
void askEverything() {
    const MacRegistry registry;
    const Facts facts = read(MacMachineFacts(), registry, MacPowerSources(), MacAudioObjects());
    MacDefaults defaults("test.tessivo");
    defaults.setData("session", "{}");
    defaults.setText("notes", "note");
    defaults.data("session");
    defaults.text("notes");
    const auto engine = MacToneOutput().makeEngine();
    for (const AudioOutputInfo& output : facts.outputs)
        if (engine->setDevice(output.id) && engine->start()) engine->schedule({0.5f}, {0.5f}, 44100);
}

TEST_F(EveryCall, mayFailWithoutALeakOrACrash) {
    load("macbook-pro-t2-worn.json");
    askEverything();
    const int calls = system.calls();
    ASSERT_GT(calls, 100);
    for (int call = 0; call < calls; ++call) {
        load("macbook-pro-t2-worn.json");
        system.failCall(call);
        askEverything();
        ASSERT_EQ(system.held(), "") << "call " << call;
    }
}

TEST_F(EveryCall, mayFindItsDeviceGone) {
    load("imac-2019-fusion.json");
    askEverything();
    const int calls = system.calls();
    for (int call = 0; call < calls; ++call) {
        load("imac-2019-fusion.json");
        system.beforeCall = [&](int number, const std::string&) {
            if (number != call) return;
            for (auto& [name, services] : system.services) {
                for (auto& service : services)
                    service->gone = true;
                services.clear();
            }
            system.servicesChanged();
            if (system.audio.devices) system.audio.devices->clear();
        };
        askEverything();
        ASSERT_EQ(system.held(), "") << "call " << call;
    }
}

} // namespace
} // namespace tessivo

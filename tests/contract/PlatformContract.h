#pragma once

#include "app/readers/MachineCapture.h"
#include "app/readers/Readers.h"
#include "platform/simulated/ManualScheduler.h"
#include "platform/simulated/SimulatedPlatform.h"

#include <gmock/gmock.h>
#include <set>
#include <thread>

namespace tessivo {

/// One computer through one platform. The parts of a platform that a test doesn't reach are null; the test is
/// then passed over.
struct ContractWorld {
    virtual ~ContractWorld() = default;

    /// Whether figures change by themselves between two readings, as those of a real battery do.
    virtual bool isLive() const { return false; }
    virtual MachineFacts* facts() { return nullptr; }
    virtual Registry* registry() { return nullptr; }
    virtual PowerSources* powerSources() { return nullptr; }
    virtual AudioObjects* audio() { return nullptr; }
    virtual ToneOutput* tones() { return nullptr; }
    /// Made anew at each call, over the same store.
    virtual std::unique_ptr<Defaults> defaults() { return nullptr; }
    /// A tool of the world's that prints this and ends so.
    virtual const SystemTools* tools() { return nullptr; }
    virtual std::string toolThatAnswers(const ToolRun&) { return {}; }
    virtual std::string toolThatNeverEnds() { return {}; }
};

struct ContractParameter {
    std::string name;
    std::function<std::unique_ptr<ContractWorld>()> make;
};

inline void PrintTo(const ContractParameter& parameter, std::ostream* out) {
    *out << parameter.name;
}

/// A name for each world; what a name of a test can't hold becomes "_".
inline std::string contractName(const testing::TestParamInfo<ContractParameter>& info) {
    std::string name = info.param.name;
    for (char& letter : name)
        if (!std::isalnum(static_cast<unsigned char>(letter))) letter = '_';
    return name;
}

/// What every platform keeps to, whatever computer it runs on. A program of tests instantiates it with its
/// worlds; a new platform begins with that.
class PlatformContract : public testing::TestWithParam<ContractParameter> {
protected:
    static constexpr std::uint32_t global = fourCharCode("glob");
    static constexpr std::uint32_t output = fourCharCode("outp");
    static constexpr const char* classes[] = {"IOPlatformExpertDevice", "AppleSmartBattery",
                                              "IOUSBHostDevice", "IONetworkInterface"};

    std::vector<std::uint32_t> audioDevices() {
        return world->audio()
            ->numbers({AudioObjects::systemObject, fourCharCode("dev#"), global})
            .value_or(std::vector<std::uint32_t>());
    }

    const std::unique_ptr<ContractWorld> world = GetParam().make();
};

#define TESSIVO_NEEDS(part)                                                                                  \
    if (!world->part()) GTEST_SKIP() << "not of this world"

/// What can't be read is absent, and reading changes nothing.
TEST_P(PlatformContract, factsAreWholeOrAbsent) {
    TESSIVO_NEEDS(facts);
    for (const char* unknown : {"", "hw.nothing", "hw.model\n"})
        EXPECT_EQ(world->facts()->sysctlbyname(unknown), std::nullopt);
    for (const char* known : {"hw.model", "machdep.cpu.brand_string", "kern.osversion"})
        if (const auto bytes = world->facts()->sysctlbyname(known)) {
            EXPECT_NE(*bytes, "") << known;
        }
    const OperatingSystem system = world->facts()->operatingSystem();
    EXPECT_TRUE(system.major >= 0 && system.minor >= 0 && system.patch >= 0);
    EXPECT_GE(world->facts()->startupVolumeTotalCapacity().value_or(0), 0);
}

TEST_P(PlatformContract, aSearchNeverFailsLoudlyAndTellsTheSameTwice) {
    TESSIVO_NEEDS(registry);
    EXPECT_EQ(
        world->registry()->matchingServices("NoSuchClass").value_or(std::vector<RegistryEntry>()).size(), 0u);
    EXPECT_EQ(world->registry()->matchingServices("").value_or(std::vector<RegistryEntry>()).size(), 0u);
    for (const char* name : classes) {
        const auto first = world->registry()->matchingServices(name);
        const auto second = world->registry()->matchingServices(name);
        ASSERT_EQ(first.has_value(), second.has_value()) << name;
        if (!first) continue;
        ASSERT_EQ(first->size(), second->size()) << name;
        for (std::size_t i = 0; i < first->size(); ++i) {
            EXPECT_NE(first->at(i).className, "");
            EXPECT_EQ(first->at(i).className, second->at(i).className);
            if (!world->isLive()) {
                EXPECT_EQ(first->at(i).properties, second->at(i).properties);
            }
        }
    }
}

TEST_P(PlatformContract, parentsCanBeAskedForAtAnyTimeAndEndSomewhere) {
    TESSIVO_NEEDS(registry);
    for (const char* name : classes)
        for (const RegistryEntry& entry :
             world->registry()->matchingServices(name).value_or(std::vector<RegistryEntry>())) {
            const RegistryEntry copy = entry; // outlives the list that it came in
            auto parent = copy.parent();
            if (parent) {
                EXPECT_EQ(parent->className, copy.parent()->className);
            }
            int levels = 0;
            for (; parent && levels < 100; ++levels)
                parent = parent->parent();
            EXPECT_LT(levels, 100);
        }
}

TEST_P(PlatformContract, powerSourcesAreDescribedByMaps) {
    TESSIVO_NEEDS(powerSources);
    const auto descriptions = world->powerSources()->descriptions();
    for (const Property& each : descriptions.value_or(PropertyList()))
        EXPECT_TRUE(std::holds_alternative<PropertyMap>(each.value));
    EXPECT_EQ(descriptions, world->powerSources()->descriptions());
}

/// Whatever a platform tells can be written to a machine file and comes back as it was.
TEST_P(PlatformContract, factsSurviveAMachineFile) {
    TESSIVO_NEEDS(facts);
    const MachineFile told = captureFacts(*world->facts(), *world->registry(), *world->powerSources());
    ManualScheduler clock;
    SimulatedPlatform again(told, clock);
    EXPECT_EQ(captureFacts(again.machineFacts(), again.registry(), again.powerSources()).encode(),
              told.encode());
}

TEST_P(PlatformContract, audioPropertiesAreNumbersOrTextsOrAbsent) {
    TESSIVO_NEEDS(audio);
    const AudioObjects& audio = *world->audio();
    const auto devices = audioDevices();
    EXPECT_EQ(std::set(devices.begin(), devices.end()).size(), devices.size());
    if (const auto chosen = audio.numbers({AudioObjects::systemObject, fourCharCode("dOut"), global})) {
        EXPECT_EQ(chosen->size(), 1u);
    }
    auto objects = devices;
    objects.insert(objects.end(), {AudioObjects::systemObject, 4'000'000'000u});
    for (const std::uint32_t object : objects)
        for (const std::uint32_t selector :
             {fourCharCode("dev#"), fourCharCode("dOut"), fourCharCode("stm#"), fourCharCode("tran"),
              fourCharCode("ssrc"), fourCharCode("jack"), fourCharCode("lnam"), fourCharCode("lscn"),
              fourCharCode("none")})
            for (const std::uint32_t scope : {global, output}) {
                const AudioAddress address{object, selector, scope};
                const auto size = audio.propertyDataSize(address);
                const auto numbers = audio.numbers(address);
                const auto text = audio.text(address);
                if (!audio.hasProperty(address)) {
                    EXPECT_FALSE(numbers || text) << object << " " << fourCharCode(selector);
                    EXPECT_EQ(size.value_or(0), 0u) << object << " " << fourCharCode(selector);
                }
                EXPECT_FALSE(numbers && text) << object << " " << fourCharCode(selector);
                EXPECT_FALSE(audio.translatedText(address, 0xffffffff))
                    << object << " " << fourCharCode(selector);
            }
}

TEST_P(PlatformContract, anEngineSoundsOnlyWhereItWasStarted) {
    TESSIVO_NEEDS(tones);
    const auto engine = world->tones()->makeEngine();
    ASSERT_NE(engine, nullptr);
    const auto isStill = [&](ToneEngine& engine) {
        engine.schedule({0.5f, 0.5f}, {0.5f, 0.5f}, 48000);
        return !engine.isRunning();
    };
    EXPECT_TRUE(isStill(*engine));
    engine->stop();
    EXPECT_TRUE(isStill(*engine));
    EXPECT_FALSE(engine->setDevice(4'000'000'000u));
    EXPECT_TRUE(isStill(*engine));
    for (const std::uint32_t device : audioDevices()) {
        const auto named = world->tones()->makeEngine();
        if (!named->setDevice(device)) continue;
        EXPECT_FALSE(named->isRunning());
        if (named->start()) {
            EXPECT_TRUE(named->isRunning());
            named->schedule({}, {}, 44100);
            named->schedule({0.1f}, {0.1f}, 22050);
        }
        named->stop();
        named->stop();
        EXPECT_TRUE(isStill(*named));
    }
}

TEST_P(PlatformContract, defaultsComeBackAsTheyWereStored) {
    if (!world->defaults()) GTEST_SKIP() << "not of this world";
    EXPECT_EQ(world->defaults()->data("session"), std::nullopt);
    EXPECT_EQ(world->defaults()->text("notes"), std::nullopt);
    std::string every;
    for (int byte = 0; byte < 256; ++byte)
        every += char(byte);
    const std::string large(300'000, 'x');
    for (const std::string& bytes : {every, std::string(), std::string("{\"a\": \"\\u00e9\"}"), large}) {
        world->defaults()->setData("session", bytes);
        EXPECT_EQ(world->defaults()->data("session"), bytes);
    }
    for (const std::string text : {"line\r\nline\t\"'%;=[]\\ \xC3\xB1 \xF0\x9F\x94\x8A", "", " both ends "}) {
        world->defaults()->setText("notes", text);
        EXPECT_EQ(world->defaults()->text("notes"), text);
        EXPECT_EQ(world->defaults()->data("session"), large); // the others stay
    }
    world->defaults()->set(
        {{"session", DefaultsEntry::Kind::data, "1"}, {"notes", DefaultsEntry::Kind::text, "2"}});
    EXPECT_EQ(world->defaults()->data("session"), "1");
    EXPECT_EQ(world->defaults()->text("notes"), "2");
    world->defaults()->set({});
    EXPECT_EQ(world->defaults()->text("notes"), "2");
}

TEST_P(PlatformContract, aToolAnswersOrCantBeLaunchedOrIsStopped) {
    TESSIVO_NEEDS(tools);
    const SystemTools& tools = *world->tools();
    for (const ToolRun& run : {ToolRun{0, "Enrolled: Yes\n"}, ToolRun{3, ""}}) {
        const auto answer = tools.run(world->toolThatAnswers(run), {"status"}, {});
        ASSERT_TRUE(answer);
        EXPECT_EQ(answer->exitStatus, run.exitStatus);
        EXPECT_EQ(answer->standardOutput, run.standardOutput);
    }
    EXPECT_FALSE(tools.run("/no/such/tool", {}, {}));
    const std::string endless = world->toolThatNeverEnds();
    StopSource stop;
    std::thread later([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        stop.requestStop();
    });
    EXPECT_FALSE(tools.run(endless, {}, stop.token()));
    later.join();
    EXPECT_FALSE(tools.run(endless, {}, stop.token()));
}

#undef TESSIVO_NEEDS

} // namespace tessivo

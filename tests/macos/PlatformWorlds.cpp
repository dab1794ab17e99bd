#include "tests/contract/PlatformContract.h"

#include "platform/macos/MacSystemTools.h"
#include "tests/contract/ScriptedTools.h"
#include "tests/macos/MacFixture.h"

namespace tessivo {
namespace {

struct MacWorld final : ScriptedTools {
    explicit MacWorld(const std::string& machine) {
        StandIn::shared().reset();
        StandIn::shared().load(loadMachineFile(std::filesystem::path(TESSIVO_MACHINES) / machine));
    }
    ~MacWorld() override { EXPECT_EQ(StandIn::shared().held(), ""); }

    MachineFacts* facts() override { return &machineFacts; }
    Registry* registry() override { return &macRegistry; }
    PowerSources* powerSources() override { return &macPowerSources; }
    AudioObjects* audio() override { return &audioObjects; }
    ToneOutput* tones() override { return &toneOutput; }
    std::unique_ptr<Defaults> defaults() override { return std::make_unique<MacDefaults>("test.contract"); }
    const SystemTools* tools() override { return &systemTools; }

    MacMachineFacts machineFacts;
    MacRegistry macRegistry;
    MacPowerSources macPowerSources;
    MacAudioObjects audioObjects;
    MacToneOutput toneOutput;
    MacSystemTools systemTools;
};

std::vector<ContractParameter> worlds() {
    std::vector<ContractParameter> all;
    for (const std::string& name : namesIn(TESSIVO_MACHINES))
        all.push_back({name, [name] { return std::make_unique<MacWorld>(name); }});
    return all;
}

INSTANTIATE_TEST_SUITE_P(Mac, PlatformContract, testing::ValuesIn(worlds()), contractName);

} // namespace
} // namespace tessivo

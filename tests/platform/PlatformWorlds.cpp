#include "tests/contract/PlatformContract.h"

#include "platform/linux/LinuxAudioObjects.h"
#include "platform/linux/LinuxDefaults.h"
#include "platform/linux/LinuxMachineFacts.h"
#include "platform/linux/LinuxRegistry.h"
#include "platform/linux/LinuxSystemTools.h"
#include "platform/linux/LinuxToneOutput.h"
#include "platform/simulated/SimulatedTools.h"
#include "tests/contract/ScriptedTools.h"
#include "tests/platform/linux/CapturedTree.h"

namespace tessivo {
namespace {

/// A captured tree under Linux; sound and tools are this computer's.
struct TreeWorld final : ScriptedTools {
    explicit TreeWorld(const std::string& name) : tree(unpacked(name)) {}

    MachineFacts* facts() override { return &machineFacts; }
    Registry* registry() override { return &linuxRegistry; }
    PowerSources* powerSources() override { return &linuxPowerSources; }
    AudioObjects* audio() override { return &sound().audioObjects; }
    ToneOutput* tones() override { return &sound().toneOutput; }
    std::unique_ptr<Defaults> defaults() override {
        return std::make_unique<LinuxDefaults>(folder / "defaults");
    }
    const SystemTools* tools() override { return &systemTools; }

    SystemTree tree;
    LinuxMachineFacts machineFacts{tree};
    LinuxRegistry linuxRegistry{tree};
    LinuxPowerSources linuxPowerSources{tree};
    LinuxSystemTools systemTools;

private:
    /// Once for all tests: nothing writes into it.
    static SystemTree unpacked(const std::string& name) {
        static std::map<std::string, CapturedTree> trees;
        return trees.try_emplace(name, name).first->second.tree();
    }

    struct Sound {
        std::shared_ptr<PulseServer> server = std::make_shared<PulseServer>();
        LinuxAudioObjects audioObjects{server};
        LinuxToneOutput toneOutput{server};
    };
    /// Only where it is asked for: it looks for a server.
    Sound& sound() {
        if (!m_sound) m_sound = std::make_unique<Sound>();
        return *m_sound;
    }

    std::unique_ptr<Sound> m_sound;
};

struct SimulatedWorld final : ContractWorld {
    explicit SimulatedWorld(const std::string& machine)
        : platform(loadMachineFile(std::filesystem::path(TESSIVO_MACHINES) / machine), clock) {}

    MachineFacts* facts() override { return &platform.machineFacts(); }
    Registry* registry() override { return &platform.registry(); }
    PowerSources* powerSources() override { return &platform.powerSources(); }
    AudioObjects* audio() override { return &platform.audioObjects(); }
    ToneOutput* tones() override { return &platform.toneOutput(); }
    std::unique_ptr<Defaults> defaults() override { return std::make_unique<Same>(platform.defaults()); }
    const SystemTools* tools() override { return &platform.systemTools(); }
    std::string toolThatAnswers(const ToolRun& run) override {
        scripted().answer("/tool", run);
        return "/tool";
    }
    std::string toolThatNeverEnds() override {
        scripted().hang("/endless");
        return "/endless";
    }

    SimulatedTools& scripted() { return static_cast<SimulatedTools&>(platform.systemTools()); }

    /// The one store of this simulation.
    struct Same final : Defaults {
        explicit Same(Defaults& store) : store(store) {}
        std::optional<std::string> data(const std::string& key) const override { return store.data(key); }
        std::optional<std::string> text(const std::string& key) const override { return store.text(key); }
        std::error_code setData(const std::string& key, const std::string& bytes) override {
            return store.setData(key, bytes);
        }
        std::error_code setText(const std::string& key, const std::string& text) override {
            return store.setText(key, text);
        }
        std::error_code set(const std::vector<DefaultsEntry>& entries) override { return store.set(entries); }
        Defaults& store;
    };

    ManualScheduler clock;
    SimulatedPlatform platform;
};

std::vector<ContractParameter> worlds() {
    std::vector<ContractParameter> all;
    for (const std::string& name : namesIn(std::filesystem::path(TESSIVO_TEST_DATA) / "trees"))
        if (name.ends_with(".tree"))
            all.push_back({name, [tree = name.substr(0, name.rfind('.'))] {
                               return std::make_unique<TreeWorld>(tree);
                           }});
    for (const std::string& name : namesIn(TESSIVO_MACHINES))
        all.push_back({name, [name] { return std::make_unique<SimulatedWorld>(name); }});
    return all;
}

INSTANTIATE_TEST_SUITE_P(All, PlatformContract, testing::ValuesIn(worlds()), contractName);

} // namespace
} // namespace tessivo

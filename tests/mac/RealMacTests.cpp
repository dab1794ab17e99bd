// This Mac itself, without the person's session, notes or History.

#include "platform/macos/MacAudioObjects.h"
#include "platform/macos/MacDefaults.h"
#include "platform/macos/MacMachineFacts.h"
#include "platform/macos/MacRegistry.h"
#include "platform/macos/MacSystemTools.h"
#include "platform/macos/MacToneOutput.h"
#include "tests/contract/PlatformContract.h"
#include "tests/contract/ScriptedTools.h"

#include <CoreFoundation/CoreFoundation.h>
#include <QProcess>
#include <csignal>

namespace tessivo {
namespace {

struct ThisMac final : ScriptedTools {
    ThisMac() { forget(); }
    ~ThisMac() override { forget(); }

    bool isLive() const override { return true; }
    MachineFacts* facts() override { return &machineFacts; }
    Registry* registry() override { return &macRegistry; }
    PowerSources* powerSources() override { return &macPowerSources; }
    AudioObjects* audio() override { return &audioObjects; }
    ToneOutput* tones() override { return &toneOutput; }
    std::unique_ptr<Defaults> defaults() override {
        return std::make_unique<MacDefaults>("example.tessivo.tests");
    }
    const SystemTools* tools() override { return &systemTools; }

    /// What an earlier run stored.
    static void forget() {
        for (const CFStringRef key : {CFSTR("session"), CFSTR("notes")})
            CFPreferencesSetValue(key, nullptr, CFSTR("example.tessivo.tests"), kCFPreferencesCurrentUser,
                                  kCFPreferencesAnyHost);
        CFPreferencesSynchronize(CFSTR("example.tessivo.tests"), kCFPreferencesCurrentUser,
                                 kCFPreferencesAnyHost);
    }

    MacMachineFacts machineFacts;
    MacRegistry macRegistry;
    MacPowerSources macPowerSources;
    MacAudioObjects audioObjects;
    MacToneOutput toneOutput;
    MacSystemTools systemTools;
};

INSTANTIATE_TEST_SUITE_P(ThisMac, PlatformContract,
                         testing::Values(ContractParameter{"this",
                                                           [] { return std::make_unique<ThisMac>(); }}),
                         contractName);

TEST(ThisMac, tellsWhatEveryMacTells) {
    ThisMac mac;
    const MachineInfo machine = readMachineInfo(mac.machineFacts, mac.macRegistry);
    EXPECT_NE(machine.modelID, "");
    EXPECT_TRUE(machine.chip);
    EXPECT_GT(machine.memoryBytes, 0u);
    EXPECT_TRUE(machine.storageBytes);
    EXPECT_GE(mac.machineFacts.operatingSystem().major, 14);
    EXPECT_TRUE(mac.macRegistry.matchingServices(RegistryClass::machine));
    EXPECT_EQ(mac.macRegistry.matchingServices(RegistryClass::machine)->size(), 1u);
}

/// The demo keeps nothing, so a person's own session stays untouched.
TEST(TheBundle, opensAndQuits) {
    QProcess program;
    program.start(TESSIVO_BUILD "/Tessivo Demo.app/Contents/MacOS/Tessivo Demo", QStringList());
    ASSERT_TRUE(program.waitForStarted());
    EXPECT_FALSE(program.waitForFinished(5'000)) << "it ended by itself: " << program.readAll().toStdString();
    ::kill(pid_t(program.processId()), SIGTERM);
    ASSERT_TRUE(program.waitForFinished(20'000));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
}

} // namespace
} // namespace tessivo

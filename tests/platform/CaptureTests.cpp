#include "app/readers/MachineCapture.h"
#include "app/readers/Readers.h"
#include "kit/support/PropertyJson.h"
#include "platform/QtScheduler.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/simulated/SimulatedPlatform.h"
#include "tests/platform/CapturedTree.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

TEST(MachineCapture, aReplayedComputerReadsLikeItself) {
    for (const char* name :
         {"macbook-pro-t2", "laptop-two-batteries", "desktop-raid", "apple-silicon", "network", "hostile"}) {
        SCOPED_TRACE(name);
        const CapturedTree tree(name);
        LinuxPlatform computer(tree.path());
        const PropertyMap captured = parsePropertyMap(prettyText(captureMachine(computer)));
        QtScheduler scheduler;
        SimulatedPlatform replayed(captured, scheduler);

        EXPECT_EQ(readMachineInfo(replayed.machineFacts(), replayed.registry()),
                  readMachineInfo(computer.machineFacts(), computer.registry()));
        EXPECT_EQ(readBattery(replayed.registry(), replayed.powerSources()),
                  readBattery(computer.registry(), computer.powerSources()));
        EXPECT_EQ(readUSBDevices(replayed.registry()), readUSBDevices(computer.registry()));
        EXPECT_EQ(readWiredInterfaces(replayed.registry()), readWiredInterfaces(computer.registry()));
        EXPECT_EQ(prettyText(captureMachine(replayed)), prettyText(captured));
    }
}

} // namespace
} // namespace tessivo

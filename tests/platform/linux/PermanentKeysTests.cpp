#include "platform/linux/LinuxMachineFacts.h"
#include "tests/platform/linux/CapturedTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tessivo {
namespace {

using testing::ElementsAre;

HardwareKeys read(const CapturedTree& tree) {
    return LinuxMachineFacts(tree.tree()).hardwareKeys().value_or(HardwareKeys{});
}

TEST(PermanentKeys, networkDevicesOnTheBoardGiveTheirAddressForLife) {
    CapturedTree tree("network");
    const auto give = [&](const std::string& interface, const char* address, int assigned = 0) {
        tree.add("sys/class/net/" + interface + "/address = " + address);
        tree.add("sys/class/net/" + interface + "/addr_assign_type = " + std::to_string(assigned));
    };
    give("enp0s31f6", "3c:22:fb:00:00:01");
    give("enp2s0", "3c:22:fb:00:00:02", 3); // set by software
    give("wlp4s0", "3c:22:fb:00:00:03");
    for (const char* elsewhere : {"enp9s0", "enp12s0", "enp16s0", "enp24s0", "thunderbolt0",
                                  "enx00e04c680001", "wwp5s0", "enp2s0v0", "br0", "tap0", "enp2s0.5"})
        give(elsewhere, "3c:22:fb:00:00:04");
    EXPECT_THAT(read(tree).ethernet, ElementsAre("3c:22:fb:00:00:01"));
    EXPECT_THAT(read(tree).wifi, ElementsAre("3c:22:fb:00:00:03"));

    for (const char* noOnes : {"00:00:00:00:00:00", "02:22:fb:00:00:03", "01:22:fb:00:00:03",
                               "00:90:4c:c5:12:38", "3c:22:fb", "zz:22:fb:00:00:03", ""}) {
        give("wlp4s0", noOnes);
        EXPECT_THAT(read(tree).wifi, ElementsAre()) << noOnes;
    }
    EXPECT_EQ(read(CapturedTree("hostile")).ethernet.size(), 0u);
}

TEST(PermanentKeys, drivesInsideGiveTheirName) {
    CapturedTree tree;
    const auto attach = [&](const std::string& name, const std::string& device, const std::string& file,
                            const char* wwid) {
        tree.add("sys/block/" + name + " -> ../../sys/devices/" + device);
        tree.add("sys/devices/" + device + "/size = 1000");
        tree.add("sys/devices/" + device + "/" + file + " = " + wwid);
    };
    const std::string pci = "pci0000:00/0000:00:";
    attach("nvme0n1", pci + "1d.0/0000:04:00.0/nvme/nvme0/nvme0n1", "wwid", "nvme.106b-43-41-00000001");
    attach("nvme1n1", pci + "1d.1/0000:05:00.0/nvme/nvme1/nvme1n1", "wwid", "eui.0000000000000000");
    attach("sda", pci + "17.0/ata1/host0/target0:0:0/0:0:0:0/block/sda", "device/wwid",
           "naa.5002538d40000001");
    attach("sdb", pci + "14.0/usb1/1-2/1-2:1.0/host1/target1:0:0/1:0:0:0/block/sdb", "device/wwid",
           "naa.5000000000000001");
    EXPECT_THAT(read(tree).drives, ElementsAre("naa.5002538d40000001", "nvme.106b-43-41-00000001"));
}

} // namespace
} // namespace tessivo

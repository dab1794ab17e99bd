#include "app/readers/Readers.h"
#include "platform/linux/LinuxMachineFacts.h"
#include "platform/linux/LinuxRegistry.h"
#include "tests/platform/CapturedTree.h"

#include <gtest/gtest.h>
#include <sys/utsname.h>

namespace tessivo {
namespace {

MachineInfo read(const CapturedTree& tree) {
    return readMachineInfo(LinuxMachineFacts(tree.tree()), LinuxRegistry(tree.tree()));
}

struct Row {
    const char* tree;
    MachineInfo machine;
};

TEST(MachineFacts, captures) {
    const Row rows[] = {
        {"macbook-pro-t2",
         {"MacBookPro15,1", "C02XK0AAJG5H", "Intel(R) Core(TM) i7-8750H CPU @ 2.20GHz", 16252928ull * 1024,
          "Ubuntu 22.04 (6.8.9-t2-jammy)", 489955840ll * 512}},
        {"laptop-two-batteries",
         {"20L5CTO1WW", std::nullopt, "Intel(R) Core(TM) i5-8250U CPU @ 1.60GHz", 16157704ull * 1024,
          "Arch Linux (6.9.1-arch1-1)", 1000215216ll * 512}},
        // Two disks form one volume: its size, not the sum of the disks.
        {"desktop-raid",
         {"Unknown", std::nullopt, "AMD Ryzen 5 3600 6-Core Processor", 32807040ull * 1024, "Linux",
          1953260928ll * 512}},
        {"apple-silicon",
         {"Apple MacBook Air (M2, 2022)", "FVFXC2ABQ6L4", std::nullopt, 16072704ull * 1024,
          "Fedora Linux Asahi Remix 40 (6.9.9-400.asahi.fc40.aarch64+16k)", 490233856ll * 512}},
        {"", {"Unknown", std::nullopt, std::nullopt, 0, "Linux", std::nullopt}},
        {"hostile",
         {"Unknown", std::nullopt, std::nullopt, 0, "Od\"d $ystem 7.x.99999999999999999999 (6.\uFFFD1)",
          std::nullopt}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.tree);
        const MachineInfo machine = read(*row.tree ? CapturedTree(row.tree) : CapturedTree());
        EXPECT_EQ(machine, row.machine) << machine.modelID << " | " << machine.serial.value_or("-") << " | "
                                        << machine.chip.value_or("-") << " | " << machine.memoryBytes << " | "
                                        << machine.osVersion << " | " << machine.storageBytes.value_or(0);
    }
}

TEST(MachineFacts, fillerInPlaceOfASerialCountsAsUnread) {
    for (const char* filler :
         {"To Be Filled By O.E.M.", "None", "Default string", "0", "0000000000", "XXXXXXXX", "........",
          "System Serial Number", "Not Specified", "  ", "N/A"}) {
        CapturedTree tree;
        tree.add(std::string("sys/class/dmi/id/product_serial = ") + filler);
        tree.add("sys/firmware/devicetree/base/serial-number | FVFXC2ABQ6L4\\x00");
        EXPECT_EQ(readSerial(LinuxRegistry(tree.tree())), "FVFXC2ABQ6L4") << filler;
    }
}

TEST(MachineFacts, theLastMountOnTheRootCounts) {
    CapturedTree tree;
    tree.add("proc/self/mountinfo | 1 0 8:1 / / rw - ext4 /dev/sda1 rw\\x0a2 1 8:16 / / rw - ext4 /dev/sdb "
             "rw\\x0a3 2 8:1 / /mnt rw - ext4 /dev/sda1 rw\\x0a");
    tree.add("sys/dev/block/8:1/size = 10");
    tree.add("sys/dev/block/8:16/size = 20");
    EXPECT_EQ(readStartupCapacity(LinuxMachineFacts(tree.tree())), 20 * 512);
}

TEST(MachineFacts, thisComputer) {
    const MachineInfo machine = readMachineInfo(LinuxMachineFacts(SystemTree()), LinuxRegistry(SystemTree()));
    utsname name;
    ASSERT_EQ(uname(&name), 0);
    EXPECT_GT(machine.memoryBytes, 64u << 20);
    EXPECT_GT(machine.storageBytes.value_or(0), 64 << 20);
    EXPECT_TRUE(machine.osVersion.ends_with(std::string(" (") + name.release + ")")) << machine.osVersion;
}

} // namespace
} // namespace tessivo

#include "app/readers/Readers.h"
#include "platform/linux/LinuxMachineFacts.h"
#include "platform/linux/LinuxRegistry.h"
#include "tests/platform/linux/CapturedTree.h"

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

constexpr std::uint64_t gibi = 1ull << 30;
constexpr std::int64_t apple251 = 251000193024, apple1000 = 1000555581440;

TEST(MachineFacts, captures) {
    const char* const debian = "Debian GNU/Linux 12 (6.1.0-28-amd64)";
    const char* const asahi = "Fedora Linux Asahi Remix 40 (6.9.9-400.asahi.fc40.aarch64+16k)";
    const MachineInfo intelAir{"MacBookAir9,1", std::nullopt, "Intel(R) Core(TM) i5-1030NG7 CPU @ 1.10GHz",
                               8 * gibi,        debian,       apple251};
    const Row rows[] = {
        {"macbook-pro-t2",
         {"MacBookPro15,1", std::nullopt, "Intel(R) Core(TM) i7-8750H CPU @ 2.20GHz", 16 * gibi,
          "Ubuntu 22.04 (6.8.9-t2-jammy)", apple251}},
        // The same Mac, whatever Linux runs from.
        {"macbook-air-intel", intelAir},
        {"macbook-air-intel-usb-disk", intelAir},
        {"macbook-air-intel-live", intelAir},
        {"imac-fusion",
         {"iMac19,1", std::nullopt, "Intel(R) Core(TM) i5-9600K CPU @ 3.70GHz", 24 * gibi,
          "Debian GNU/Linux 13 (6.12.48+deb13-amd64)", 2000398934016 + 121332826112}},
        {"mac-pro-two-drives",
         {"MacPro7,1", std::nullopt, "Intel(R) Xeon(R) W-3223 CPU @ 3.50GHz", 48 * gibi, debian,
          std::nullopt}},
        {"macbook-air-m1", {"MacBookAir10,1", "FVFDK1ABQ6L4", "Apple M1", 8 * gibi, asahi, apple251}},
        {"macbook-air-m2", {"Mac14,2", "FVFXC2ABQ6L4", "Apple M2", 16 * gibi, asahi, apple251}},
        {"mac-mini-m1", {"Macmini9,1", "C07DK0AAQ6NV", "Apple M1", 16 * gibi, asahi, 500277790720}},
        {"mac-mini-m2", {"Mac14,3", "H2WDK0AAQ6NV", "Apple M2", 24 * gibi, asahi, 500277790720}},
        {"dmi-beside-device-tree",
         {"MacBookPro18,2", "C02HK0AAQ05N", "Apple M1 Max", 32 * gibi, asahi, apple1000}},
        {"unknown-board", {"Unknown", "K4T9999999", "Apple silicon", 16 * gibi, asahi, apple251}},
        {"laptop-two-batteries",
         {"20L5CTO1WW", std::nullopt, "Intel(R) Core(TM) i5-8250U CPU @ 1.60GHz", 16157704ull * 1024,
          "Arch Linux (6.9.1-arch1-1)", 1000215216ll * 512}},
        // Two disks that form one volume are still two, and nothing tells which one came with it.
        {"desktop-raid",
         {"Unknown", std::nullopt, "AMD Ryzen 5 3600 6-Core Processor", 32807040ull * 1024, "Linux",
          std::nullopt}},
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

TEST(MachineFacts, aDiskElsewhereNeverSpeaksForTheMac) {
    // Where the disk hangs (the controller's name of a Thunderbolt port stands for its class and vendor), its
    // name, and whether it counts.
    const std::tuple<const char*, const char*, bool> rows[] = {
        {"pci0000:00/0000:00:1d.0/0000:04:00.0/nvme/nvme0", "nvme0n1", true},
        {"platform/soc@200000000/27bcc0000.nvme/nvme/nvme0", "nvme0n1", true},
        {"pci0000:00/0000:00:1f.2/ata1/host0/target0:0:0/0:0:0:0/block", "sda", true},
        {"pci0000:00/0000:00:06.0/virtio3/block", "vda", true},
        {"pci0000:00/0000:00:1f.2/ata2/host1/target1:0:0/1:0:0:0/block", "sr0", false},
        {"pci0000:00/0000:00:14.0/usb2/2-1/2-1:1.0/host3/target3:0:0/3:0:0:0/block", "sda", false},
        {"pci0000:00/0000:00:1c.0/0000:02:00.0/fw1/fw1.0/host4/target4:0:0/4:0:0:0/block", "sda", false},
        {"platform/host5/session1/target5:0:0/5:0:0:0/block", "sda", false},
        {"pci0000:00/0000:00:1c.5/0000:03:00.0/mmc_host/mmc0/mmc0:aaaa/block", "mmcblk0", false},
        {"virtual/nvme-fabrics/ctl/nvme0", "nvme0n1", false},
        {"virtual/block", "nbd0", false},
        {"virtual/block", "md0", false},
        // Behind a Thunderbolt switch (its controller without a driver) and a USB4 one; a plug by the
        // kernel's word; a port of a processor with Thunderbolt.
        {"pci0000:00/0000:00:01.0/0000:05:00.0/0000:06:01.0/0000:08:00.0/nvme/nvme0", "nvme0n1", false},
        {"pci0000:00/0000:00:01.0/0000:05:00.0/0000:06:01.0/0000:08:00.0/ata9/host0/target0:0:0/0:0:0:0/"
         "block",
         "sda", false},
        {"pci0000:00/0000:00:02.0/0000:15:00.0/0000:16:01.0/0000:18:00.0/nvme/nvme0", "nvme0n1", false},
        {"pci0000:00/0000:00:03.0/0000:25:00.0/nvme/nvme0", "nvme0n1", false},
        {"pci0000:00/0000:00:07.1/0000:35:00.0/nvme/nvme0", "nvme0n1", false},
        // A switch with another maker's, or some other, device on it.
        {"pci0000:00/0000:00:04.0/0000:45:00.0/0000:46:01.0/0000:48:00.0/nvme/nvme0", "nvme0n1", true},
    };
    for (const auto& [place, name, counts] : rows) {
        CapturedTree tree;
        const auto function = [&](const std::string& path, const char* kind, const char* vendor) {
            tree.add("sys/devices/pci0000:00/" + path + "/class = " + kind);
            tree.add("sys/devices/pci0000:00/" + path + "/vendor = " + vendor);
        };
        function("0000:00:01.0/0000:05:00.0/0000:06:00.0/0000:07:00.0", "0x088000", "0x8086");
        function("0000:00:02.0/0000:15:00.0/0000:16:00.0/0000:17:00.0", "0x0c0340", "0x1022");
        tree.add("sys/devices/pci0000:00/0000:00:03.0/removable = removable");
        function("0000:00:04.0/0000:45:00.0/0000:46:00.0/0000:47:00.0", "0x088000", "0x10b5");
        function("0000:00:07.1", "0x060400", "0x8086");
        tree.add("sys/devices/pci0000:00/0000:00:07.1/device = 0x8a1f");
        const std::string folder = std::string("devices/") + place + "/" + name;
        tree.add(std::string("sys/block/") + name + " -> ../" + folder);
        tree.add("sys/" + folder + "/size = 2000");
        const auto expected = counts ? std::optional<std::int64_t>(2000 * 512) : std::nullopt;
        EXPECT_EQ(readStartupCapacity(LinuxMachineFacts(tree.tree())), expected) << folder;
        tree.remove("sys/" + folder + "/size");
        EXPECT_EQ(readStartupCapacity(LinuxMachineFacts(tree.tree())), std::nullopt) << folder;
    }
}

TEST(MachineFacts, ofSeveralDrivesTheOneWithAnApplePartitionCounts) {
    struct Disk {
        std::int64_t sectors;
        const char* udev = "";
    };
    const char* const apfs = "E:ID_PART_ENTRY_TYPE=7c3457ef-0000-11aa-aa11-00306543ecac";
    const char* const recovery = "E:ID_PART_ENTRY_TYPE=52637672-7900-11AA-AA11-00306543ECAC";
    const char* const hfs = "E:ID_FS_TYPE=hfsplus";
    const char* const other =
        "E:ID_PART_ENTRY_TYPE=0fc63daf-8483-4772-8e79-3d69d8477de4\\x0aE:ID_FS_TYPE=ext4";
    const std::tuple<const char*, std::vector<Disk>, std::int64_t> rows[] = {
        {"iMac19,1", {{10, other}, {20, apfs}, {30}}, 20},
        {"MacPro7,1", {{10, recovery}, {20, other}}, 10},
        {"iMac19,2", {{10, other}, {20, other}}, 0},
        {"iMac19,2", {{10, apfs}, {20, hfs}, {40, other}}, 30},
        // Not sold with a Fusion Drive, or more parts than one has.
        {"iMac20,1", {{10, apfs}, {20, hfs}}, 0},
        {"iMac19,2", {{10, apfs}, {20, hfs}, {40, recovery}}, 0},
        {"iMac19,2", {{9223372036854775807, apfs}, {20, hfs}}, 0},
        {"iMac19,2", {{9007199254740992, apfs}, {9007199254740992, hfs}}, 0},
        // No medium, or a size that is none.
        {"iMac19,2", {{0}}, 0},
        {"iMac19,2", {{-5}}, 0},
    };
    for (const auto& [model, disks, sectors] : rows) {
        CapturedTree tree;
        tree.add(std::string("sys/class/dmi/id/product_name = ") + model);
        for (std::size_t i = 0; i < disks.size(); ++i) {
            const std::string number = std::to_string(i), name = "sd" + std::string(1, char('a' + i));
            const std::string folder = "devices/pci0000:00/0000:00:1f.2/ata" + number + "/block/" + name;
            tree.add("sys/block/" + name + " -> ../" + folder);
            tree.add("sys/" + folder + "/size = " + std::to_string(disks[i].sectors));
            tree.add("sys/" + folder + "/" + name + "1/partition = 1");
            tree.add("sys/" + folder + "/" + name + "1/dev = 8:" + number);
            tree.add("run/udev/data/b8:" + number + " | S:disk/by-path/x\\x0a" + disks[i].udev + "\\x0a");
        }
        const auto expected = sectors ? std::optional(sectors * 512) : std::nullopt;
        EXPECT_EQ(readStartupCapacity(LinuxMachineFacts(tree.tree())), expected) << model << disks.size();
    }
}

TEST(MachineFacts, aControllerIsOneDriveHoweverItsNamespacesAreListed) {
    CapturedTree tree;
    // The kernel looks for several paths: the namespace is a device of its own, the path to it hidden.
    tree.add("sys/block/nvme0n1 -> ../devices/virtual/nvme-subsystem/nvme-subsys0/nvme0n1");
    tree.add("sys/block/nvme0c0n1 -> ../devices/pci0000:00/0000:00:1d.0/0000:04:00.0/nvme/nvme0/nvme0c0n1");
    tree.add("sys/devices/virtual/nvme-subsystem/nvme-subsys0/nvme0 -> "
             "../../../pci0000:00/0000:00:1d.0/0000:04:00.0/nvme/nvme0");
    tree.add("sys/devices/virtual/nvme-subsystem/nvme-subsys0/nvme0n1/size = 100");
    tree.add("sys/devices/pci0000:00/0000:00:1d.0/0000:04:00.0/nvme/nvme0/nvme0c0n1/size = 100");
    EXPECT_EQ(readStartupCapacity(LinuxMachineFacts(tree.tree())), 100 * 512);
    // A namespace whose size can't be read may be the largest.
    tree.add("sys/block/nvme0n2 -> ../devices/virtual/nvme-subsystem/nvme-subsys0/nvme0n2");
    tree.add("sys/devices/virtual/nvme-subsystem/nvme-subsys0/nvme0n2/size /");
    EXPECT_EQ(readStartupCapacity(LinuxMachineFacts(tree.tree())), std::nullopt);
}

TEST(MachineFacts, memoryIsWhatIsInstalled) {
    const std::vector<const char*> intel = {"sys/class/dmi/id/sys_vendor = Apple Inc."};
    const std::vector<const char*> arm = {
        "sys/firmware/devicetree/base/compatible | apple,j274\\x00apple,t8103\\x00apple,arm-platform"};
    const std::vector<const char*> other = {};
    // MemTotal in kB, blocks of 512 MB, udev's list of modules, gibibytes (negative: MemTotal).
    const std::tuple<std::vector<const char*>, int, int, const char*, double> rows[] = {
        {intel, 16252928, 0, "E:MEMORY_DEVICE_0_SIZE=8589934592\\x0aE:MEMORY_DEVICE_1_SIZE=8589934592\\x0a",
         16},
        {intel, 20000000, 0, "E:MEMORY_DEVICE_0_SIZE=21474836480\\x0aE:MEMORY_DEVICE_1_CACHE_SIZE=5\\x0a",
         20},
        // Figures below MemTotal, beyond every number, or not understood don't count.
        {intel, 16252928, 0, "E:MEMORY_DEVICE_0_SIZE=8589934592\\x0a", 16},
        {intel, 16252928, 0, "E:MEMORY_DEVICE_0_SIZE=9223372036854775807\\x0aE:MEMORY_DEVICE_1_SIZE=1\\x0a",
         16},
        {intel, 16252928, 0, "E:MEMORY_DEVICE_0_SIZE=21474836480\\x0aE:MEMORY_DEVICE_1_SIZE=?\\x0a", 16},
        {intel, 0, 0, "E:MEMORY_DEVICE_0_SIZE=8589934592\\x0a", 8},
        {intel, 20000000, 40, "", 20},
        {intel, 16252928, 31, "", 16},
        {intel, 16252928, 2, "", 16},
        {intel, 20000000, 39, "", 19.5},
        {arm, 15300000, 30, "", 16},
        {arm, 18000000, 0, "", 18},
        {other, 16157704, 31, "", 15.5},
        {other, 16157704, 0, "", -1},
        // 12 % below a size, and a little more; beyond the largest size.
        {intel, 14763951, 0, "", 16},
        {intel, 14763940, 0, "", -1},
        {intel, 16777216, 0, "", 16},
        {intel, 16777217, 0, "", 18},
        {intel, 12000000, 0, "", -1},
        {intel, 700000000, 0, "", -1},
    };
    for (const auto& [lines, total, blocks, modules, gigabytes] : rows) {
        CapturedTree tree;
        for (const char* line : lines)
            tree.add(line);
        if (total)
            tree.add("proc/meminfo | MemTotal:       " + std::to_string(total) +
                     " kB\\x0aMemFree: 1 kB\\x0a");
        if (blocks) tree.add("sys/devices/system/memory/block_size_bytes = 20000000");
        for (int i = 0; i < blocks; ++i)
            tree.add("sys/devices/system/memory/memory" + std::to_string(i) + "/state = online");
        if (*modules) tree.add(std::string("run/udev/data/+dmi:id | ") + modules);
        const auto expected =
            gigabytes < 0 ? std::uint64_t(total) * 1024 : std::uint64_t(gigabytes * double(gibi));
        EXPECT_EQ(LinuxMachineFacts(tree.tree()).physicalMemory(), expected)
            << total << " " << blocks << " " << modules;
    }
}

TEST(MachineFacts, aBrokenDeviceTreeIsNoMac) {
    for (const std::string& compatible :
         {std::string(" |"), std::string(" /"), std::string(" | \\x00\\x00\\x00"),
          " | " + std::string(2u << 20, 'a')}) {
        CapturedTree tree;
        tree.add("sys/firmware/devicetree/base/compatible" + compatible);
        tree.add("sys/firmware/devicetree/base/model | Apple MacBook Air (13-inch, M2, 2022)\\x00");
        EXPECT_EQ(read(tree).modelID, "Unknown") << compatible.substr(0, 20);
        tree.add("sys/class/dmi/id/product_name = Unknown Product");
        EXPECT_EQ(read(tree).modelID, "Unknown") << compatible.substr(0, 20);
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

TEST(MachineFacts, aLinkOutOfACapturedTreeLeadsNowhere) {
    CapturedTree outside, captured;
    outside.add("file = 7");
    outside.add("2-1/idVendor = 05ac");
    captured.add("file = 5");
    const std::string place = outside.path().string();
    captured.add("away -> " + place);
    captured.add("upwards -> ../" + outside.path().filename().string());
    captured.add("folder/idVendor -> " + place + "/2-1/idVendor");
    captured.add("folder/driver -> " + place + "/drivers/stub");
    captured.add("within -> folder/../file");
    const SystemTree tree = captured.tree();
    EXPECT_EQ(tree.number("within"), 5);
    EXPECT_EQ(tree.resolved("within"), "file");
    EXPECT_EQ(tree.linkName("folder/driver"), "stub") << "the name alone is a fact of the tree";
    for (const std::string& folder :
         {std::string("away"), std::string("upwards"), "../" + outside.path().filename().string()}) {
        EXPECT_EQ(tree.bytes(folder + "/file"), std::nullopt) << folder;
        EXPECT_FALSE(tree.exists(folder + "/file")) << folder;
        EXPECT_EQ(tree.names(folder), std::nullopt) << folder;
        EXPECT_FALSE(tree.folder(folder + "/2-1")) << folder;
        EXPECT_EQ(tree.resolved(folder + "/file"), std::nullopt) << folder;
        EXPECT_EQ(tree.linkName(folder + "/file"), std::nullopt) << folder;
    }
    EXPECT_EQ(tree.folder("folder")->text("idVendor"), std::nullopt);
}

TEST(MachineFacts, thisComputer) {
    const MachineInfo machine = readMachineInfo(LinuxMachineFacts(SystemTree()), LinuxRegistry(SystemTree()));
    utsname name;
    ASSERT_EQ(uname(&name), 0);
    EXPECT_GT(machine.memoryBytes, 64u << 20);
    // A container may see no drive.
    EXPECT_GT(machine.storageBytes.value_or(1 << 30), 64 << 20);
    EXPECT_TRUE(machine.osVersion.ends_with(std::string(" (") + name.release + ")")) << machine.osVersion;
}

} // namespace
} // namespace tessivo

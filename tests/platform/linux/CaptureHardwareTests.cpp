#include "platform/linux/CaptureHardware.h"
#include "tests/platform/linux/CapturedTree.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

std::string pci(const std::string& place, const char* vendor, const char* device, const char* kind) {
    const std::string folder = "sys/bus/pci/devices/0000:" + place + "/";
    return folder + "vendor = " + vendor + "\n" + folder + "device = " + device + "\n" + folder +
           "class = " + kind + "\n";
}

std::string driver(const std::string& device) {
    return "sys/bus/" + device + "/driver -> ../../drivers/any\n";
}

const std::string t2 = "sys/class/dmi/id/product_name = MacBookPro15,1\n";
const std::string t2Mini = "sys/class/dmi/id/product_name = Macmini8,1\n";
const std::string bridge = pci("02:00.1", "0x106b", "0x1801", "0x000000");
const std::string bridgeSound = pci("02:00.3", "0x106b", "0x1803", "0x040100");
const std::string pciCamera = pci("02:00.0", "0x14e4", "0x1570", "0x048000");
const std::string controller = pci("00:1f.3", "0x8086", "0x9d70", "0x040380");
const std::string screenSound = pci("01:00.1", "0x1002", "0xab38", "0x040300");
const std::string usbCamera = "sys/bus/usb/devices/1-5:1.0/bInterfaceClass = 0e\n";
const std::string arm =
    "sys/firmware/devicetree/base/compatible | apple,j413\\x00apple,t8112\\x00apple,arm-platform\\x00\n";
const std::string armLaptop =
    arm + "sys/firmware/devicetree/base/model | Apple MacBook Air (13-inch, M2, 2022)\\x00\n";
const std::string armMini = arm + "sys/firmware/devicetree/base/model | Apple Mac mini (M2, 2023)\\x00\n";
const std::string isp = "sys/bus/platform/devices/22a000000.isp/uevent = DRIVER\n";

TEST(CaptureHardware, aDeviceWithoutADriverIsToldApartFromNone) {
    struct {
        const char* what;
        std::string lines;
        bool camera, sound;
    } const rows[] = {
        {"nothing is known", "", false, false},
        {"a desktop with nothing", t2Mini, false, false},
        {"a T2 laptop without drivers", t2 + bridge + bridgeSound, true, true},
        {"the same with both",
         t2 + bridge + bridgeSound + driver("pci/devices/0000:02:00.1") + driver("pci/devices/0000:02:00.3"),
         false, false},
        {"a T2 desktop has no camera behind its chip", t2Mini + bridge + bridgeSound, false, true},
        {"a camera on PCI", pciCamera + controller + driver("pci/devices/0000:00:1f.3"), true, false},
        {"the same with its driver", pciCamera + driver("pci/devices/0000:02:00.0"), false, false},
        {"another device of that maker", pci("03:00.0", "0x14e4", "0x43ba", "0x028000"), false, false},
        {"a sound controller without a driver", controller, false, true},
        {"sound for screens takes nothing in", screenSound, false, false},
        {"a camera on USB", usbCamera, true, false},
        {"the same with its driver", usbCamera + driver("usb/devices/1-5:1.0"), false, false},
        {"an ARM laptop", armLaptop, true, true},
        {"the same with an image processor alone", armLaptop + isp, true, true},
        {"and with its driver", armLaptop + isp + driver("platform/devices/22a000000.isp"), false, true},
        {"an ARM desktop", armMini, false, false},
        {"odd files",
         "sys/bus/pci/devices/x/vendor | \\x00\\xff\nsys/bus/pci/devices/x/class = 0x\n"
         "sys/bus/usb/devices/y/bInterfaceClass = e0e\nproc/asound/cards | \\xff\\x00\n",
         false, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        CapturedTree tree;
        std::istringstream lines(row.lines);
        for (std::string line; std::getline(lines, line);)
            tree.add(line);
        EXPECT_EQ(CaptureHardware::hasCameraWithoutDriver(tree.tree()), row.camera);
        EXPECT_EQ(CaptureHardware::hasSoundWithoutDriver(tree.tree()), row.sound);
        EXPECT_FALSE(CaptureHardware::hasSoundCard(tree.tree()));
    }
}

TEST(CaptureHardware, theKernelsListOfSoundCards) {
    CapturedTree none, two;
    none.add("proc/asound/cards = --- no soundcards ---");
    two.add("proc/asound/cards | \\x201 [PCH            ]: HDA-Intel - HDA Intel PCH\\x0a"
            "\\x20                     HDA Intel PCH at 0xa0610000 irq 60\\x0a");
    EXPECT_FALSE(CaptureHardware::hasSoundCard(none.tree()));
    EXPECT_TRUE(CaptureHardware::hasSoundCard(two.tree()));
}

} // namespace
} // namespace tessivo

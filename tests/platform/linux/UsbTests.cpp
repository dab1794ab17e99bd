#include "app/readers/Readers.h"
#include "kit/session/PortChecklist.h"
#include "platform/linux/LinuxRegistry.h"
#include "platform/linux/UsbDevices.h"
#include "tests/platform/linux/CapturedTree.h"

#include <atomic>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thread>

namespace tessivo {
namespace {

using testing::ElementsAre;

std::vector<USBDevice> read(const CapturedTree& tree) {
    return readUSBDevices(LinuxRegistry(tree.tree()));
}

std::vector<std::string> printed(const CapturedTree& tree) {
    std::vector<std::string> lines;
    for (const USBDevice& device : read(tree)) {
        char place[16];
        std::snprintf(place, sizeof place, "%08x", device.locationID);
        lines.push_back(std::string(place) + " " + std::to_string(device.vendorID) + ":" +
                        std::to_string(device.productID) + " class " +
                        (device.deviceClass ? std::to_string(*device.deviceClass) : "-") + " " +
                        device.vendor.value_or("-") + " | " + device.summary());
    }
    return lines;
}

TEST(Usb, captures) {
    EXPECT_THAT(printed(CapturedTree("macbook-pro-t2")),
                ElementsAre("01100000 8457:10263 class 9 VIA Labs, Inc. | USB2.0 Hub · 480 Mb/s (USB 2)",
                            "01140000 1921:21891 class 0 SanDisk | Ultra Fit · 480 Mb/s (USB 2)",
                            "05100000 1452:33331 class 239 Apple Inc. | Apple T2 Bus · 480 Mb/s (USB 2)"));
    EXPECT_TRUE(read(CapturedTree("laptop-two-batteries")).empty());
    EXPECT_TRUE(read(CapturedTree("desktop-raid")).empty());
    EXPECT_FALSE(LinuxRegistry(CapturedTree("desktop-raid").tree()).matchingServices("IOUSBHostDevice"));
    // Names are mended and never dropped; a device in the middle of going away is passed over.
    EXPECT_THAT(printed(CapturedTree("hostile")), ElementsAre("00000000 1:2 class - - | USB device",
                                                              "03100000 0:0 class - - | Mou\uFFFDse \uFFFD"));
}

TEST(Usb, speeds) {
    const std::pair<const char*, std::optional<std::int64_t>> rows[] = {
        {"1.5", 0},   {"12", 1},     {"480", 2},    {"5000", 3},  {"10000", 4},
        {"20000", 5}, {"40000", {}}, {"480.0", {}}, {"-480", {}}, {"fast", {}}};
    for (const auto& [text, code] : rows) {
        CapturedTree tree;
        tree.add("sys/bus/usb/devices/1-1/idVendor = 05ac");
        tree.add("sys/bus/usb/devices/1-1/idProduct = 024f");
        tree.add(std::string("sys/bus/usb/devices/1-1/speed = ") + text);
        EXPECT_EQ(read(tree).at(0).speed, code) << text;
    }
}

TEST(Usb, places) {
    const std::pair<const char*, std::optional<std::uint32_t>> rows[] = {
        {"20-3", 0x14300000},
        {"1-1.2.3.4.5.6", 0x01123456},
        {"1-1.2.3.4.5.6.7", std::nullopt},
        // Root hubs with more than 15 ports: no two ports share a place.
        {"1-15", 0x01f00000},
        {"1-16", 0x11000000},
        {"1-17", 0x11100000},
        {"2-1.15", 0x021f0000},
        {"2-1.16", std::nullopt},
        {"255-1", 0xff100000},
        {"256-1", std::nullopt},
        {"1-0", std::nullopt},
        {"1-", std::nullopt},
        {"1-1.", std::nullopt},
        {"-1", std::nullopt},
        {"1-a", std::nullopt},
        {"usb1", std::nullopt},
    };
    for (const auto& [name, place] : rows)
        EXPECT_EQ(UsbDevices::locationID(name), place) << name;
}

TEST(Usb, aDeviceThatComesTicksAPortAndOneThatGoesDoesNot) {
    CapturedTree tree("macbook-pro-t2");
    PortChecklist checklist = PortChecklist::make(2);
    EXPECT_FALSE(checklist.update(read(tree)));

    // It is listed before its numbers can be read, and again while it goes away.
    tree.add("sys/bus/usb/devices/2-1/product = Stick");
    EXPECT_FALSE(checklist.update(read(tree)));
    tree.add("sys/bus/usb/devices/2-1/idVendor = 0951");
    tree.add("sys/bus/usb/devices/2-1/idProduct | ");
    EXPECT_FALSE(checklist.update(read(tree)));
    tree.add("sys/bus/usb/devices/2-1/idProduct = 1666");
    EXPECT_EQ(checklist.update(read(tree)).value_or(USBDevice()).name, "Stick");
    EXPECT_FALSE(checklist.update(read(tree)));
    tree.remove("sys/bus/usb/devices/2-1/idVendor");
    EXPECT_FALSE(checklist.update(read(tree)));
    tree.remove("sys/bus/usb/devices/2-1");
    EXPECT_FALSE(checklist.update(read(tree)));
    EXPECT_EQ(checklist.active, 2);
}

TEST(Usb, onlyWhatIsSolderedInAllTheWayTicksNoPort) {
    CapturedTree tree;
    tree.add("sys/bus/usb/devices /");
    const auto plug = [&](const std::string& name, const std::string& removable) {
        tree.add("sys/bus/usb/devices/" + name + "/idVendor = 05ac");
        tree.add("sys/bus/usb/devices/" + name + "/idProduct = 0" +
                 std::to_string(tree.tree().names("sys/bus/usb/devices")->size()));
        tree.add("sys/bus/usb/devices/" + name + "/removable = " + removable);
    };
    const std::tuple<const char*, const char*, bool> rows[] = {
        {"1-2", "fixed", false},    {"1-2.1", "fixed", false},  {"1-2.2", "removable", true},
        {"1-2.3", "unknown", true}, {"1-3", "removable", true}, {"1-3.1", "fixed", true},
    };
    for (const auto& [name, removable, ticks] : rows) {
        PortChecklist checklist = PortChecklist::make(1);
        checklist.update(read(tree));
        plug(name, removable);
        EXPECT_EQ(checklist.update(read(tree)).has_value(), ticks) << name;
        EXPECT_EQ(checklist.known.size(), read(tree).size()) << "all that is plugged in is listed and known";
    }
}

TEST(Usb, aDeviceInTheSamePlaceIsNeverReadAsAMixtureOfTwo) {
    CapturedTree tree;
    const std::string place = "sys/bus/usb/devices/1-1", ids[][2] = {{"0951", "1666"}, {"05ac", "024f"}};
    tree.add("sys/bus/usb/devices /");
    for (const auto& [vendor, product] : ids) {
        tree.add(vendor + "/idVendor = " + vendor);
        tree.add(vendor + "/idProduct = " + product);
        tree.add(vendor + "/product = Stick");
        tree.add(vendor + "/manufacturer = Maker");
        tree.add(vendor + "/bDeviceClass = 00");
        tree.add(vendor + "/speed = 480");
    }
    std::atomic<bool> done = false;
    std::thread hands([&] {
        for (int round = 0; round < 2'000; ++round)
            for (const auto& [vendor, product] : ids) {
                std::filesystem::rename(tree.path(vendor), tree.path(place));
                std::filesystem::rename(tree.path(place), tree.path(vendor));
            }
        done = true;
    });
    std::set<std::string> seen;
    const LinuxRegistry registry(tree.tree());
    while (!done)
        for (const USBDevice& device : readUSBDevices(registry))
            seen.insert(device.id());
    hands.join();
    // As the kernel does it, a device that goes takes its files with it.
    tree.add(place + "/product = Stick");
    EXPECT_TRUE(read(tree).empty());
    for (const std::string& id : seen)
        EXPECT_TRUE(id == "17825792-2385-5734" || id == "17825792-1452-591") << id;
}

TEST(Usb, aDeviceIsReadOnceAndAnotherOneInItsPlaceAnew) {
    CapturedTree tree;
    const std::string folder = "sys/bus/usb/devices/";
    const auto plug = [&](const std::string& name, const std::string& product, const std::string& more = "") {
        for (const std::string& line :
             {"product = " + product, std::string("manufacturer = Maker"), std::string("idVendor = 0951"),
              std::string("idProduct = 1666"), std::string("bDeviceClass = 00"), std::string("speed = 480")})
            tree.add(folder + name + "/" + line);
        if (!more.empty()) tree.add(folder + name + "/" + more);
    };
    const LinuxRegistry registry(tree.tree());
    const auto names = [&] {
        std::string all;
        for (const USBDevice& device : readUSBDevices(registry))
            all += std::to_string(device.locationID >> 20 & 0xf) + device.name + " ";
        return all;
    };
    plug("1-1", "Stick");
    plug("1-2", "Mouse");
    plug("1-3", "n/a", "authorized = 0");
    EXPECT_EQ(names(), "1Stick 2Mouse 3n/a ");
    // Written in place, which leaves the folder as it was.
    for (const char* name : {"1-1", "1-3"})
        tree.add(folder + name + "/product = New");
    EXPECT_EQ(names(), "1Stick 2Mouse 3New ") << "only one that told it all isn't asked again";
    std::filesystem::rename(tree.path(folder + "1-1"), tree.path("aside"));
    std::filesystem::rename(tree.path(folder + "1-2"), tree.path(folder + "1-1"));
    std::filesystem::rename(tree.path("aside"), tree.path(folder + "1-2"));
    EXPECT_EQ(names(), "1Mouse 2New 3New ");
    tree.remove(folder + "1-1");
    EXPECT_EQ(names(), "2New 3New ");
    plug("1-1", "Disk");
    EXPECT_EQ(names(), "1Disk 2New 3New ");
    tree.remove(folder + "1-2/idProduct");
    EXPECT_EQ(names(), "1Disk 3New ") << "on its way out";
}

} // namespace
} // namespace tessivo

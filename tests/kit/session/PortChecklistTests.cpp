#include "kit/session/PortChecklist.h"

#include <gtest/gtest.h>
#include <limits>

namespace tessivo {
namespace {

const USBDevice stick{"Stick", "Generic", 4660, 1, 0x01100000, 3, 0};
const USBDevice keys{"Keyboard", std::nullopt, 1452, 591, 0x02100000, 0, 0};
const USBDevice hub{"Hub", "Maker", 1507, 2, 0x02000000, 2, 9};
const USBDevice appleHub{"Hub", "Apple Inc.", 1452, 3, 0x03000000, 2, 9};

/// A checklist that waits for its first device.
PortChecklist waiting(std::int64_t count, const std::vector<USBDevice>& inPlace = {}) {
    PortChecklist checklist = PortChecklist::make(count);
    EXPECT_EQ(checklist.update(inPlace), std::nullopt) << "a baseline never ticks anything";
    return checklist;
}

TEST(USBDevice, readsItsProperties) {
    const auto device = USBDevice::make({{"USB Product Name", "Stick"},
                                         {"kUSBProductString", "other"},
                                         {"USB Vendor Name", "Generic"},
                                         {"idVendor", 1452},
                                         {"idProduct", 4352},
                                         {"locationID", 338690048},
                                         {"Device Speed", 3},
                                         {"bDeviceClass", 0}});
    EXPECT_EQ(device, (USBDevice{"Stick", "Generic", 1452, 4352, 338690048, 3, 0}));
    EXPECT_EQ(device.id(), "338690048-1452-4352");
    EXPECT_EQ(device.summary(), "Stick · 5 Gb/s (USB 3)");

    EXPECT_EQ(USBDevice::make({{"kUSBProductString", "Old name"}}).name, "Old name");
    const auto bare = USBDevice::make({{"USB Product Name", 7}, {"Device Speed", "fast"}});
    EXPECT_EQ(bare, (USBDevice{.name = "USB device"}));
    EXPECT_EQ(USBDevice::make({{"locationID", std::int64_t{0xFFFFFFFF}}}).locationID, 0xFFFFFFFFu);
}

TEST(USBDevice, wordsItsSpeed) {
    const char* texts[] = {"1.5 Mb/s (USB 1)", "12 Mb/s (USB 1)", "480 Mb/s (USB 2)",
                           "5 Gb/s (USB 3)",   "10 Gb/s (USB 3)", "20 Gb/s (USB 3)"};
    for (std::int64_t code = 0; code < 6; ++code)
        EXPECT_EQ(USBDevice{.speed = code}.speedText(), texts[code]);
    EXPECT_EQ(USBDevice{.speed = -1}.speedText(), std::nullopt);
    EXPECT_EQ((USBDevice{.name = "Stick", .speed = 6}.summary()), "Stick");
}

TEST(PortChecklist, oneDeviceWalksThroughAllPorts) {
    PortChecklist checklist = waiting(2);
    EXPECT_EQ(checklist.update({stick}), stick);
    EXPECT_EQ(checklist.slots[0].device, stick);
    EXPECT_EQ(checklist.slots[0].answer, ManualAnswer::works);
    EXPECT_EQ(checklist.active, 2);
    EXPECT_EQ(checklist.update({stick}), std::nullopt) << "still plugged in";
    EXPECT_EQ(checklist.update({}), std::nullopt);
    EXPECT_EQ(checklist.update({stick}), stick);
    EXPECT_EQ(checklist.active, std::nullopt);
    checklist.update({});
    EXPECT_EQ(checklist.update({keys}), std::nullopt) << "every slot is settled";
    EXPECT_EQ(checklist.known, std::set{keys.id()});
}

TEST(PortChecklist, creditsTheDeviceAndNotTheHub) {
    using Devices = std::vector<USBDevice>;
    const std::pair<Devices, std::optional<USBDevice>> rows[] = {
        {{hub, keys}, keys},    {{keys, hub}, keys},      {{hub}, hub},          {{appleHub}, {}},
        {{appleHub, hub}, hub}, {{appleHub, keys}, keys}, {{stick, keys}, stick}};
    for (const auto& [plugged, credited] : rows) {
        PortChecklist checklist = waiting(3);
        EXPECT_EQ(checklist.update(plugged), credited);
        EXPECT_EQ(checklist.active, credited ? 2 : 1);
        EXPECT_EQ(checklist.update(plugged), std::nullopt) << "the others are known now";
    }
    PortChecklist checklist = waiting(2, {stick});
    EXPECT_EQ(checklist.update({stick}), std::nullopt) << "in place when the page opened";
}

TEST(PortChecklist, keepsItsCountWithinBounds) {
    EXPECT_EQ(PortChecklist::make(0).slots.size(), 1u);
    PortChecklist checklist = PortChecklist::make(2);
    checklist.setPortCount(20);
    EXPECT_EQ(checklist.slots.size(), 8u);
    EXPECT_EQ(checklist.slots.back().title(), "Port 8");
    EXPECT_EQ(checklist.active, 1);
    checklist.setPortCount(4);
    checklist.active = 2;
    checklist.setPortCount(0);
    EXPECT_EQ(checklist.slots.size(), 1u);
    EXPECT_EQ(checklist.active, 1);

    checklist.answer(1, ManualAnswer::works);
    checklist.active.reset();
    checklist.setPortCount(2);
    EXPECT_EQ(checklist.active, 2) << "a new port is the open one";

    PortChecklist edited;
    edited.slots.push_back({.id = std::numeric_limits<std::int64_t>::max()});
    edited.setPortCount(2);
    EXPECT_EQ(edited.slots.size(), 2u);
}

TEST(PortChecklist, takesAnswers) {
    PortChecklist checklist = waiting(3);
    EXPECT_FALSE(checklist.hasActivity());
    checklist.answer(3, ManualAnswer::problem);
    EXPECT_EQ(checklist.active, 1) << "a fault elsewhere leaves the active port";
    checklist.answer(1, ManualAnswer::problem);
    EXPECT_EQ(checklist.active, 2);

    checklist.update({stick});
    EXPECT_EQ(checklist.active, std::nullopt);
    checklist.answer(2, ManualAnswer::works);
    EXPECT_EQ(checklist.slots[1].device, stick);
    checklist.answer(2, ManualAnswer::problem);
    EXPECT_EQ(checklist.slots[1].device, std::nullopt);

    checklist.answer(2, ManualAnswer::notPresent);
    EXPECT_EQ(checklist.firstOpen(), 2);
    EXPECT_FALSE(checklist.slots[1].passed());
    EXPECT_EQ(checklist.active, std::nullopt);

    const PortChecklist before = checklist;
    checklist.answer(9, ManualAnswer::works);
    EXPECT_EQ(checklist, before);
}

} // namespace
} // namespace tessivo

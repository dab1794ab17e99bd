#include "app/readers/Readers.h"
#include "platform/linux/LinuxRegistry.h"
#include "tests/platform/linux/CapturedTree.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

using Source = BatteryReading::Source;

BatteryReading read(const CapturedTree& tree) {
    return readBattery(LinuxRegistry(tree.tree()), LinuxPowerSources(tree.tree()));
}

std::string print(const BatteryReading& battery) {
    const auto number = [](const std::optional<std::int64_t>& value) {
        return value ? std::to_string(*value) : std::string("-");
    };
    return std::string(battery.present ? "present" : "absent") + ", cycles " + number(battery.cycleCount) +
           ", design " + number(battery.designCapacity) + ", full " + number(battery.fullChargeCapacity) +
           ", " + battery.condition.value_or("-") + ", " + std::string(rawValue(battery.source));
}

TEST(Battery, captures) {
    const std::pair<const char*, const char*> rows[] = {
        {"macbook-pro-t2", "present, cycles 412, design 7336, full 5942, -, registry"},
        // Watt-hours by the design voltage; no count of cycles; never the mouse or the tablet.
        {"laptop-two-batteries", "present, cycles -, design 2101, full 1800, -, registry"},
        {"desktop-raid", "absent, cycles -, design -, full -, -, none"},
        // Good is no verdict; this driver's 0 is a true count.
        {"macbook-air-m1", "present, cycles 0, design 4382, full 4382, -, registry"},
        {"unknown-board", "present, cycles 41, design -, full -, -, registry"},
        {"macbook-air-m2", "present, cycles 57, design 4563, full 4380, Permanent Battery Failure, registry"},
        {"network", "absent, cycles -, design -, full -, -, none"},
    };
    for (const auto& [tree, expected] : rows)
        EXPECT_EQ(print(read(CapturedTree(tree))), expected) << tree;
    EXPECT_EQ(LinuxRegistry(CapturedTree("laptop-two-batteries").tree())
                  .matchingServices("AppleSmartBattery")
                  ->size(),
              2u);
}

TEST(Battery, attributes) {
    const std::pair<std::vector<const char*>, const char*> rows[] = {
        {{"present = 0", "cycle_count = 9"}, "absent, cycles -, design -, full -, -, registry"},
        // A driver without the attribute lists its battery only while there is one.
        {{"cycle_count = 9"}, "present, cycles 9, design -, full -, -, registry"},
        {{"present = maybe", "cycle_count = 9"}, "present, cycles -, design -, full -, -, powerSources"},
        {{"cycle_count = -1", "charge_full = -4000000", "charge_full_design = 5000000"},
         "present, cycles -, design 5000, full -, -, registry"},
        {{"charge_full = 4294967295000", "charge_full_design = 9223372036854775807"},
         "present, cycles -, design -, full -, -, registry"},
        {{"charge_full = 4.5e6", "charge_full_design = 0"},
         "present, cycles -, design -, full -, -, registry"},
        {{"charge_full /", "cycle_count /"}, "present, cycles -, design -, full -, -, registry"},
        // Watt-hours without a voltage say nothing in mAh.
        {{"energy_full = 40000000", "energy_full_design = 50000000"},
         "present, cycles -, design -, full -, -, registry"},
        {{"energy_full = 40000000", "energy_full_design = 50000000", "voltage_min_design = 0",
          "voltage_now = 10000000"},
         "present, cycles -, design 5000, full 4000, -, registry"},
        // Charge and energy are never mixed into one ratio.
        {{"charge_full = 4000000", "energy_full_design = 50000000", "voltage_now = 10000000"},
         "present, cycles -, design -, full 4000, -, registry"},
        {{"health = Good", "cycle_count = 0"}, "present, cycles -, design -, full -, -, registry"},
        {{"health = Dead"}, "present, cycles -, design -, full -, Permanent Battery Failure, registry"},
        {{"health = Blown fuse"}, "present, cycles -, design -, full -, Permanent Battery Failure, registry"},
        {{"health = Cell imbalance"}, "present, cycles -, design -, full -, Check Battery, registry"},
        {{"health = Overheat"}, "present, cycles -, design -, full -, -, registry"},
        {{"scope = Device"}, "absent, cycles -, design -, full -, -, none"},
    };
    for (const auto& [attributes, expected] : rows) {
        CapturedTree tree;
        tree.add("sys/class/power_supply/BAT0/type = Battery");
        for (const char* attribute : attributes)
            tree.add(std::string("sys/class/power_supply/BAT0/") + attribute);
        EXPECT_EQ(print(read(tree)), expected) << attributes.front();
    }
}

TEST(Battery, anInstalledBatteryComesBeforeAnEmptyBayAndAUPSIsNone) {
    CapturedTree tree;
    tree.add("sys/class/power_supply/ups/type = UPS");
    EXPECT_EQ(print(read(tree)), "absent, cycles -, design -, full -, -, none");
    EXPECT_EQ(LinuxPowerSources(tree.tree()).descriptions(),
              (PropertyList{PropertyMap{{"Type", "UPS"}, {"Is Present", true}}}));
    tree.add("sys/class/power_supply/BAT0/type = Battery");
    tree.add("sys/class/power_supply/BAT0/present = 0");
    tree.add("sys/class/power_supply/BAT1/type = Battery");
    tree.add("sys/class/power_supply/BAT1/cycle_count = 33");
    EXPECT_EQ(print(read(tree)), "present, cycles 33, design -, full -, -, registry");
}

} // namespace
} // namespace tessivo

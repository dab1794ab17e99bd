#include "platform/linux/PowerSupplies.h"

#include "kit/hardware/RegistryNames.h"
#include "kit/support/Text.h"

#include <algorithm>
#include <cmath>

namespace tessivo::PowerSupplies {

namespace {

const std::string folder = "sys/class/power_supply/";

// No battery of a computer comes near; firmware that doesn't know its own figure gives such numbers.
constexpr std::int64_t absurdCapacity = 1'000'000; // mAh

/// A peripheral's battery. Drivers that name no scope are told by the bus that the battery hangs on.
bool belongsToPeripheral(const SystemTree& tree, const std::string& supply) {
    if (const auto scope = tree.text(supply + "/scope")) return Text::lowercased(*scope) == "device";
    const std::string path = tree.resolved(supply).value_or("");
    return path.find("/usb") != std::string::npos || path.find("/uhid/") != std::string::npos ||
           path.find("/bluetooth/") != std::string::npos;
}

/// Nothing if the attribute holds something that is neither 0 nor 1. A driver without it lists its
/// battery only while there is one.
std::optional<bool> installed(const SystemTree& tree, const std::string& supply) {
    if (!tree.exists(supply + "/present")) return true;
    const auto present = tree.number(supply + "/present");
    if (!present || *present < 0 || *present > 1) return std::nullopt;
    return *present == 1;
}

std::optional<std::vector<std::string>> supplies(const SystemTree& tree, std::string_view type) {
    auto names = tree.names(folder);
    if (!names) return std::nullopt;
    std::erase_if(*names, [&](const std::string& name) {
        return tree.text(folder + name + "/type") != type || belongsToPeripheral(tree, folder + name);
    });
    for (std::string& name : *names)
        name = folder + name;
    std::stable_partition(names->begin(), names->end(),
                          [&](const std::string& supply) { return installed(tree, supply) == true; });
    return names;
}

std::optional<std::int64_t> plausible(double milliampereHours) {
    if (!(milliampereHours >= 1 && milliampereHours <= double(absurdCapacity))) return std::nullopt;
    return std::llround(milliampereHours);
}

struct Capacities {
    std::optional<std::int64_t> design; // mAh
    std::optional<std::int64_t> full;
};

Capacities capacities(const SystemTree& tree, const std::string& supply) {
    const auto read = [&](const char* name) { return tree.number(supply + name); };
    Capacities out;
    const auto chargeDesign = read("/charge_full_design");
    const auto chargeFull = read("/charge_full");
    if (chargeDesign || chargeFull) {
        // Microampere-hours.
        if (chargeDesign) out.design = plausible(double(*chargeDesign) / 1000);
        if (chargeFull) out.full = plausible(double(*chargeFull) / 1000);
        return out;
    }
    auto voltage = read("/voltage_min_design");
    if (!voltage || *voltage <= 0) voltage = read("/voltage_now");
    if (!voltage || *voltage <= 0) return out;
    // Microwatt-hours over microvolts are ampere-hours.
    if (const auto energy = read("/energy_full_design"))
        out.design = plausible(double(*energy) / double(*voltage) * 1000);
    if (const auto energy = read("/energy_full"))
        out.full = plausible(double(*energy) / double(*voltage) * 1000);
    return out;
}

RegistryEntry batteryEntry(const SystemTree& tree, const std::string& supply) {
    PropertyMap properties;
    if (const auto present = installed(tree, supply)) properties[RegistryKey::batteryInstalled] = *present;
    // 0 is also what drivers give that don't count cycles; the one of Apple silicon counts.
    const bool counts = supply.starts_with(folder + "macsmc-");
    if (const auto cycles = tree.number(supply + "/cycle_count"); cycles && *cycles >= (counts ? 0 : 1))
        properties[RegistryKey::cycleCount] = *cycles;
    const Capacities capacity = capacities(tree, supply);
    if (capacity.design) properties[RegistryKey::designCapacity] = *capacity.design;
    if (capacity.full) properties[RegistryKey::nominalCapacity] = *capacity.full;
    if (auto name = tree.text(supply + "/model_name")) properties["DeviceName"] = *name;
    return {RegistryClass::battery, properties, nullptr};
}

/// The kernel's bad health words in the Mac's. Those about the moment (temperature, charger) tell nothing of
/// the battery's state, and "Good" says only that the driver knows of no fault: no verdict of the Mac's.
void addHealth(PropertyMap& description, const std::string& health) {
    const std::string word = Text::lowercased(health);
    if (word == "dead" || word == "unspecified failure" || word == "blown fuse") {
        description[RegistryKey::batteryHealth] = "Poor";
        description[RegistryKey::batteryCondition] = "Permanent Battery Failure";
    }
    if (word == "calibration required" || word == "cell imbalance")
        description[RegistryKey::batteryCondition] = "Check Battery";
    if (word == "no battery") description[RegistryKey::isPresent] = false;
}

Property description(const SystemTree& tree, const std::string& supply, const char* type) {
    PropertyMap out{{RegistryKey::sourceType, type}};
    if (auto name = tree.text(supply + "/model_name")) out["Name"] = *name;
    if (const auto present = installed(tree, supply)) out[RegistryKey::isPresent] = *present;
    if (const auto health = tree.text(supply + "/health")) addHealth(out, *health);
    return out;
}

} // namespace

std::optional<std::vector<RegistryEntry>> batteries(const SystemTree& tree) {
    const auto found = supplies(tree, "Battery");
    if (!found) return std::nullopt;
    std::vector<RegistryEntry> out;
    for (const std::string& supply : *found) {
        RegistryEntry entry = batteryEntry(tree, supply);
        // Gone while it was read: what was got is half a battery.
        if (!tree.exists(supply + "/type")) entry.properties.reset();
        out.push_back(std::move(entry));
    }
    return out;
}

std::optional<PropertyList> descriptions(const SystemTree& tree) {
    const auto found = supplies(tree, "Battery");
    if (!found) return std::nullopt;
    PropertyList out;
    for (const std::string& supply : *found)
        out.push_back(description(tree, supply, RegistryKey::internalBattery));
    for (const std::string& supply : supplies(tree, "UPS").value_or(std::vector<std::string>()))
        out.push_back(description(tree, supply, "UPS"));
    return out;
}

} // namespace tessivo::PowerSupplies

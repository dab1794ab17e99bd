#pragma once

#include "platform/Registry.h"
#include "platform/linux/SystemTree.h"

/// Linux power supplies under the Mac's keys. The machine's own batteries alone, never those of mice
/// and headsets; installed ones before empty bays, else in the order of their names.
namespace tessivo::PowerSupplies {

/// "AppleSmartBattery" entries: "BatteryInstalled", "CycleCount", and in mAh "DesignCapacity" and
/// "NominalChargeCapacity". A battery that counts in watt-hours gives capacities only where its voltage
/// is known. Nothing if the system has no list of supplies.
std::optional<std::vector<RegistryEntry>> batteries(const SystemTree& tree);

/// "Type" ("InternalBattery" or "UPS"), "Name", "Is Present" and what the driver says of its health.
std::optional<PropertyList> descriptions(const SystemTree& tree);

} // namespace tessivo::PowerSupplies

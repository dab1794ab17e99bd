#pragma once

#include "platform/linux/SystemTree.h"

namespace tessivo {

/// Whether a device hangs on a plug by its PCI lanes: the kernel calls it or a bridge above it removable, or
/// a bridge above it is a Thunderbolt port or also carries a Thunderbolt or USB4 controller. The controller
/// is known by what it is, with or without a driver. `device` is a folder of sysfs or a link to one; parts
/// of its path that are no PCI functions are passed over. False where there is no such folder.
bool isOnCable(const SystemTree& tree, const std::string& device);

/// Whether the last name of a path is a PCI function's address, "0000:03:00.0".
bool isPciFunction(const std::string& path);

} // namespace tessivo

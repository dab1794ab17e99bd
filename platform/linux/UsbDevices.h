#pragma once

#include "platform/Registry.h"
#include "platform/linux/SystemTree.h"

namespace tessivo::UsbDevices {

/// "IOUSBHostDevice" entries of all plugged-in devices, root hubs left out: "USB Product Name", "USB
/// Vendor Name", "idVendor", "idProduct", "bDeviceClass", "Device Speed" (the Mac's code),
/// "locationID", and "SolderedIn", a key of our own, of a device soldered to the board by the kernel's word.
/// A device that went away while it was read has no properties. Nothing if the system has no list.
std::optional<std::vector<RegistryEntry>> entries(const SystemTree& tree);

/// The Mac's place number of a device named "1-2.4": the bus in the top byte, then four bits a port from
/// the root down. Nothing for a name of another form.
std::optional<std::uint32_t> locationID(const std::string& name);

} // namespace tessivo::UsbDevices

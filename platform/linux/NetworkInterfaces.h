#pragma once

#include "kit/hardware/HardwareKeys.h"
#include "platform/Registry.h"
#include "platform/linux/SystemTree.h"

namespace tessivo::NetworkInterfaces {

/// "IONetworkInterface" entries: "BSD Name", "IOBuiltin", true only for a wired port on the machine's own
/// board, and "IOInterfaceFlags", whose lowest bit says that the interface is switched on. The class tells
/// the kind ("IO80211Interface", "BridgeInterface", ...). The parent's class is the driver's name; it
/// carries "IOLinkStatus" (1 no link, 3 link up; left out when the driver doesn't say or the interface is
/// switched off) and "IOLinkSpeed" in bits per second. The loopback is left out. Nothing if the system has
/// no list.
std::optional<std::vector<RegistryEntry>> entries(const SystemTree& tree);

/// Adds the permanent addresses of built-in ports and of built-in Wi-Fi. An address that was set by
/// software, or that chips carry before a maker has given them their own, is no key.
void addPermanentAddresses(const SystemTree& tree, HardwareKeys& keys);

} // namespace tessivo::NetworkInterfaces

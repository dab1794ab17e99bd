#pragma once

#include "platform/Registry.h"
#include "platform/linux/SystemTree.h"

namespace tessivo::NetworkInterfaces {

/// "IONetworkInterface" entries: "BSD Name" and "IOBuiltin", true only for a wired port on the machine's
/// own board. The class tells the kind ("IO80211Interface", "BridgeInterface", ...). The parent's class
/// is the driver's name; it carries "IOLinkStatus" (1 no link, 3 link up; left out when the driver
/// doesn't say) and "IOLinkSpeed" in bits per second. The loopback is left out. Nothing if the system
/// has no list.
std::optional<std::vector<RegistryEntry>> entries(const SystemTree& tree);

} // namespace tessivo::NetworkInterfaces

#include "platform/linux/NetworkInterfaces.h"

#include "kit/hardware/RegistryNames.h"
#include "kit/support/Text.h"
#include "platform/linux/PciTopology.h"

#include <limits>

namespace tessivo::NetworkInterfaces {

namespace {

const std::string folder = "sys/class/net/";

constexpr std::int64_t ethernetType = 1; // of the kernel's ARPHRD numbers
constexpr std::int64_t loopbackType = 772;
constexpr std::int64_t unknownSpeed = 4294967295; // -1 as the kernel's 32 bits print it
constexpr std::int64_t bitsPerMegabit = 1'000'000;
constexpr std::int64_t noLink = 1; // the registry's "valid" bit alone
constexpr std::int64_t linkUp = 3; // and the "active" bit
constexpr std::int64_t isUp = 1;   // of the interface's flags: switched on
constexpr const char* wifiClass = "IO80211Interface";

/// "DEVTYPE=wlan" of the uevent file; plain ports have none.
std::string deviceType(const SystemTree& tree, const std::string& interface) {
    constexpr std::string_view key = "DEVTYPE=";
    for (const std::string& line : Text::lines(tree.text(interface + "/uevent").value_or("")))
        if (line.starts_with(key)) return line.substr(key.size());
    return {};
}

struct Kind {
    const char* className;
    bool builtIn = false;
};

Kind kind(const SystemTree& tree, const std::string& interface, std::int64_t type) {
    const std::string devtype = deviceType(tree, interface);
    const std::string device = interface + "/device";
    const std::string bus = tree.linkName(device + "/subsystem").value_or("");
    const std::string driver = tree.linkName(device + "/driver").value_or("");
    if (devtype == "wlan" || tree.exists(interface + "/wireless") || tree.exists(interface + "/phy80211"))
        return {wifiClass};
    if (devtype == "bridge" || tree.exists(interface + "/bridge")) return {"BridgeInterface"};
    if (devtype == "bluetooth") return {"BluetoothInterface"};
    if (bus == "thunderbolt" || driver.starts_with("thunderbolt")) return {"ThunderboltInterface"};
    if (bus == "usb") return {"USBEthernetInterface"};
    if (!tree.exists(device)) return {"VirtualInterface"};
    if (type != ethernetType || !devtype.empty() || tree.linkName(device + "/physfn"))
        return {"OtherInterface"};
    if (bus != "pci" && bus != "platform") return {"EthernetInterface"};
    if (isOnCable(tree, device)) return {"ThunderboltEthernetInterface"};
    return {"EthernetInterface", true};
}

bool isOnBoard(const SystemTree& tree, const std::string& device) {
    const auto bus = tree.linkName(device + "/subsystem");
    return (bus == "pci" || bus == "platform") && !isOnCable(tree, device);
}

/// The address if a maker gave it to this one device: 48 bits, neither for a group nor set by hand.
std::optional<std::string> permanentAddress(const SystemTree& tree, const std::string& interface) {
    constexpr std::int64_t permanent = 0;                // of the kernel's kinds of assignment
    constexpr std::string_view unassigned = "00:90:4c:"; // of Broadcom's chips before a maker sets them
    constexpr std::size_t length = 17;
    constexpr std::int64_t groupOrLocal = 3;
    if (tree.number(interface + "/addr_assign_type") != permanent) return std::nullopt;
    auto address = tree.text(interface + "/address");
    if (!address || address->size() != length) return std::nullopt;
    const auto first = wholeNumber(std::string_view(*address).substr(0, 2), 16);
    const bool isZero = address->find_first_not_of("0:") == std::string::npos;
    if (!first || *first & groupOrLocal || isZero || address->starts_with(unassigned)) return std::nullopt;
    return address;
}

/// The carrier is the cable itself. It can't be read while the interface is shut down, and the state then
/// tells nothing of the cable either.
std::optional<std::int64_t> linkStatus(const SystemTree& tree, const std::string& interface,
                                       std::optional<std::int64_t> flags) {
    if (flags && !(*flags & isUp)) return std::nullopt;
    if (const auto carrier = tree.number(interface + "/carrier"); carrier == 0 || carrier == 1)
        return *carrier == 1 ? linkUp : noLink;
    const auto state = tree.text(interface + "/operstate");
    if (!state || state == "unknown") return std::nullopt;
    return state == "up" ? linkUp : noLink;
}

RegistryEntry entry(const SystemTree& tree, const std::string& name, std::int64_t type) {
    const std::string interface = folder + name;
    const Kind kind = NetworkInterfaces::kind(tree, interface, type);

    const auto flags = tree.number(interface + "/flags", 16);
    PropertyMap link;
    if (const auto status = linkStatus(tree, interface, flags)) link[RegistryKey::linkStatus] = *status;
    if (const auto speed = tree.number(interface + "/speed");
        speed && *speed > 0 && *speed < unknownSpeed &&
        *speed <= std::numeric_limits<std::int64_t>::max() / bitsPerMegabit)
        link[RegistryKey::linkSpeed] = *speed * bitsPerMegabit;
    const std::string driver = tree.linkName(interface + "/device/driver").value_or("");

    RegistryEntry out;
    out.className = kind.className;
    out.properties = PropertyMap{{RegistryKey::interfaceName, Text::repaired(name)},
                                 {RegistryKey::isBuiltIn, kind.builtIn}};
    if (flags) (*out.properties)[RegistryKey::interfaceFlags] = *flags;
    out.setParent({driver, link, nullptr});
    // Gone while it was read.
    if (!tree.exists(interface + "/type")) {
        out.properties.reset();
        out.readParent = nullptr;
    }
    return out;
}

} // namespace

std::optional<std::vector<RegistryEntry>> entries(const SystemTree& tree) {
    const auto names = tree.names(folder);
    if (!names) return std::nullopt;
    std::vector<RegistryEntry> out;
    for (const std::string& name : *names)
        // Files such as bonding_masters stand beside the interfaces, and have no type.
        if (const auto type = tree.number(folder + name + "/type"); type && *type != loopbackType)
            out.push_back(entry(tree, name, *type));
    return out;
}

void addPermanentAddresses(const SystemTree& tree, HardwareKeys& keys) {
    for (const std::string& name : tree.names(folder).value_or(std::vector<std::string>())) {
        const std::string interface = folder + name;
        if (tree.number(interface + "/type") != ethernetType) continue;
        const Kind kind = NetworkInterfaces::kind(tree, interface, ethernetType);
        const bool isWiFi = std::string_view(kind.className) == wifiClass;
        if (!kind.builtIn && !(isWiFi && isOnBoard(tree, interface + "/device"))) continue;
        if (auto address = permanentAddress(tree, interface))
            (isWiFi ? keys.wifi : keys.ethernet).insert(std::move(*address));
    }
}

} // namespace tessivo::NetworkInterfaces

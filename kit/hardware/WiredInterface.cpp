#include "kit/hardware/WiredInterface.h"

#include "kit/hardware/RegistryNames.h"

#include "kit/support/Text.h"

#include <cmath>

namespace tessivo {
namespace {

constexpr std::int64_t linkUp = 3; ///< RegistryKey::linkStatus: bit 0 is valid, bit 1 is active
constexpr std::int64_t isUp = 1;   ///< of RegistryKey::interfaceFlags

/// A number that the system keeps without a sign; a negative one is no reading.
std::optional<std::int64_t> unsignedInteger(const PropertyMap& map, const std::string& key) {
    const auto number = integer(map, key);
    return number && *number >= 0 ? number : std::nullopt;
}

} // namespace

std::optional<WiredInterface> WiredInterface::make(const PropertyMap& properties, std::string interfaceClass,
                                                   const PropertyMap& controller,
                                                   std::string controllerClass) {
    const auto name = text(properties, RegistryKey::interfaceName);
    if (!name) return std::nullopt;
    WiredInterface wired;
    wired.bsdName = *name;
    // Only a true boolean makes a port the machine's own, never a number.
    const auto builtIn = properties.find(RegistryKey::isBuiltIn);
    const bool* flag = builtIn == properties.end() ? nullptr : std::get_if<bool>(&builtIn->second.value);
    wired.builtIn = flag && *flag;
    wired.controllerClass = std::move(controllerClass);
    wired.interfaceClass = std::move(interfaceClass);
    wired.linkActive = (unsignedInteger(controller, RegistryKey::linkStatus).value_or(0) & linkUp) == linkUp;
    wired.linkSpeed = unsignedInteger(controller, RegistryKey::linkSpeed);
    const auto flags = integer(properties, RegistryKey::interfaceFlags);
    wired.switchedOff = flags && !(*flags & isUp);
    return wired;
}

bool WiredInterface::isEthernet() const {
    const std::string classes = Text::lowercased(controllerClass + " " + interfaceClass);
    for (const char* other :
         {"thunderbolt", "skywalk", "80211", "wifi", "ncm", "bridge", "bluetooth", "airport"})
        if (classes.find(other) != std::string::npos) return false;
    return true;
}

std::optional<std::string> WiredInterface::speedText() const {
    return EthernetCheck::speedText(linkSpeed);
}

std::vector<WiredInterface> EthernetCheck::builtInPorts(const std::vector<WiredInterface>& interfaces) {
    std::vector<WiredInterface> ports;
    for (const WiredInterface& wired : interfaces)
        if (wired.builtIn && wired.isEthernet()) ports.push_back(wired);
    return ports;
}

std::optional<std::string> EthernetCheck::speedText(std::optional<std::uint64_t> speed) {
    if (speed.value_or(0) == 0) return std::nullopt;
    if (*speed < 1'000'000'000) return std::to_string(*speed / 1'000'000) + " Mb/s";
    const double gigabits = double(*speed) / 1e9;
    return (gigabits == std::floor(gigabits) ? Text::whole(gigabits) : Text::tenths(gigabits)) + " Gb/s";
}

} // namespace tessivo

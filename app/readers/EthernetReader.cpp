#include "app/readers/Readers.h"

#include <algorithm>

namespace tessivo {

namespace {

constexpr std::int64_t linkIsUp = 3; // "valid" and "active", the two lowest bits

/// A property that must be of the boolean type; a number doesn't count.
bool flag(const PropertyMap& map, const std::string& key) {
    const auto entry = map.find(key);
    const bool* value = entry == map.end() ? nullptr : std::get_if<bool>(&entry->second.value);
    return value && *value;
}

} // namespace

std::vector<WiredInterface> readWiredInterfaces(const Registry& registry) {
    std::vector<WiredInterface> interfaces;
    const auto services = registry.matchingServices("IONetworkInterface");
    if (!services) return interfaces;
    const PropertyMap none;
    for (const RegistryEntry& service : *services) {
        const auto name = service.properties ? text(*service.properties, "BSD Name") : std::nullopt;
        if (!name || !service.parent) continue;
        const PropertyMap& link = service.parent->properties ? *service.parent->properties : none;
        WiredInterface interface;
        interface.bsdName = *name;
        interface.builtIn = flag(*service.properties, "IOBuiltin");
        interface.controllerClass = service.parent->className;
        interface.interfaceClass = service.className;
        interface.linkActive = (integer(link, "IOLinkStatus").value_or(0) & linkIsUp) == linkIsUp;
        if (const auto speed = integer(link, "IOLinkSpeed"); speed && *speed >= 0)
            interface.linkSpeed = std::uint64_t(*speed);
        interfaces.push_back(std::move(interface));
    }
    std::stable_sort(
        interfaces.begin(), interfaces.end(),
        [](const WiredInterface& one, const WiredInterface& other) { return one.bsdName < other.bsdName; });
    return interfaces;
}

} // namespace tessivo

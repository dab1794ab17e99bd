#pragma once

#include "kit/support/Property.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tessivo {

/// One entry of the hardware registry: its class, its property map and the entry above it in the plane
/// "IOService". Properties that couldn't be read are absent; a parent that couldn't be had is null.
struct RegistryEntry {
    std::string className;
    std::optional<PropertyMap> properties;
    std::shared_ptr<const RegistryEntry> parent;
};

/// The hardware registry: "IOPlatformExpertDevice", "AppleSmartBattery", "IOUSBHostDevice",
/// "IONetworkInterface". Short and synchronous, main thread.
class Registry {
public:
    virtual ~Registry() = default;

    /// All entries that match the class, in the system's order; nothing if the search fails.
    virtual std::optional<std::vector<RegistryEntry>>
    matchingServices(const std::string& className) const = 0;
};

/// The power sources' descriptions, in the system's order; nothing if there is no information or no list.
class PowerSources {
public:
    virtual ~PowerSources() = default;

    virtual std::optional<PropertyList> descriptions() const = 0;
};

} // namespace tessivo

#pragma once

#include "kit/support/Property.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tessivo {

/// One entry of the hardware registry: its class and its property map. Properties that couldn't be read are
/// absent.
struct RegistryEntry {
    std::string className;
    std::optional<PropertyMap> properties;
    /// Reads the entry above it in the plane "IOService"; see `parent`.
    std::function<std::shared_ptr<const RegistryEntry>()> readParent;

    /// The entry above, read at each call; null if there is none to be had.
    std::shared_ptr<const RegistryEntry> parent() const { return readParent ? readParent() : nullptr; }
    void setParent(RegistryEntry entry) {
        readParent = [parent = std::make_shared<const RegistryEntry>(std::move(entry))] { return parent; };
    }
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

#pragma once

#include "kit/support/Describe.h"
#include "kit/support/Property.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tessivo {

/// One USB device of the registry. `builtIn` isn't persisted.
struct USBDevice {
    std::string name;
    std::optional<std::string> vendor;
    std::int64_t vendorID = 0;
    std::int64_t productID = 0;
    std::uint32_t locationID = 0;
    std::optional<std::int64_t> speed; ///< the registry's speed code, 0 to 5
    std::optional<std::int64_t> deviceClass;
    bool builtIn = false; ///< soldered in, so that it can't have been plugged into a port

    /// A device from its registry properties, with the stated fallbacks.
    static USBDevice make(const PropertyMap& properties);

    std::string id() const; ///< "338690048-1452-4352"; not stored
    bool isHub() const;
    bool isInternalHub() const;
    std::optional<std::string> speedText() const;
    std::string summary() const; ///< name and speed joined by " · "

    bool operator==(const USBDevice&) const = default;
};
BOOST_DESCRIBE_STRUCT(USBDevice, (), (name, vendor, vendorID, productID, locationID, speed, deviceClass))

} // namespace tessivo

#pragma once

#include "kit/support/Describe.h"
#include "kit/support/Property.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tessivo {

/// One network interface of the registry. Speed in bits per second. `switchedOff` is for the page alone and
/// isn't persisted.
struct WiredInterface {
    std::string bsdName;
    bool builtIn = false;
    std::string controllerClass;
    std::string interfaceClass;
    bool linkActive = false;
    std::optional<std::uint64_t> linkSpeed;
    bool switchedOff = false; ///< by the system's settings; a link can't come up then

    /// An interface from its own properties and those of the controller above it; either map may be empty.
    /// Nothing without a "BSD Name".
    static std::optional<WiredInterface> make(const PropertyMap& properties, std::string interfaceClass,
                                              const PropertyMap& controller, std::string controllerClass);

    bool isEthernet() const;
    std::optional<std::string> speedText() const;

    bool operator==(const WiredInterface&) const = default;
};
BOOST_DESCRIBE_STRUCT(WiredInterface, (),
                      (bsdName, builtIn, controllerClass, interfaceClass, linkActive, linkSpeed))

namespace EthernetCheck {
std::vector<WiredInterface> builtInPorts(const std::vector<WiredInterface>& interfaces);
/// "100 Mb/s", "2.5 Gb/s"; nothing for no speed and for 0.
std::optional<std::string> speedText(std::optional<std::uint64_t> speed);
} // namespace EthernetCheck

} // namespace tessivo

#pragma once

#include "platform/Registry.h"
#include "platform/linux/SystemTree.h"
#include "platform/linux/UsbDevices.h"

namespace tessivo {

/// The registry's four classes out of firmware tables, power supplies, USB devices and network
/// interfaces, under the keys and in the units of the Mac's registry.
class LinuxRegistry final : public Registry {
public:
    explicit LinuxRegistry(SystemTree tree);

    std::optional<std::vector<RegistryEntry>> matchingServices(const std::string& className) const override;

private:
    SystemTree m_tree;
    mutable UsbDevices m_usbDevices;
};

/// The machine's batteries (and UPS) as the Mac's power-source descriptions.
class LinuxPowerSources final : public PowerSources {
public:
    explicit LinuxPowerSources(SystemTree tree);

    std::optional<PropertyList> descriptions() const override;

private:
    SystemTree m_tree;
};

} // namespace tessivo

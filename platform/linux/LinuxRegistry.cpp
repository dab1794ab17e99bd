#include "platform/linux/LinuxRegistry.h"

#include "kit/hardware/RegistryNames.h"
#include "platform/linux/Firmware.h"
#include "platform/linux/NetworkInterfaces.h"
#include "platform/linux/PowerSupplies.h"

namespace tessivo {

namespace {

std::vector<RegistryEntry> platformExpert(const SystemTree& tree) {
    PropertyMap properties;
    if (auto model = Firmware::model(tree)) properties["model"] = *model;
    if (auto serial = Firmware::serialNumber(tree)) properties[RegistryKey::serialNumber] = *serial;
    return {RegistryEntry{RegistryClass::machine, properties, nullptr}};
}

} // namespace

LinuxRegistry::LinuxRegistry(SystemTree tree) : m_tree(std::move(tree)), m_usbDevices(m_tree) {}

std::optional<std::vector<RegistryEntry>>
LinuxRegistry::matchingServices(const std::string& className) const {
    if (className == RegistryClass::machine) return platformExpert(m_tree);
    if (className == RegistryClass::battery) return PowerSupplies::batteries(m_tree);
    if (className == RegistryClass::usbDevice) return m_usbDevices.entries();
    if (className == RegistryClass::network) return NetworkInterfaces::entries(m_tree);
    return std::vector<RegistryEntry>();
}

LinuxPowerSources::LinuxPowerSources(SystemTree tree) : m_tree(std::move(tree)) {}

std::optional<PropertyList> LinuxPowerSources::descriptions() const {
    return PowerSupplies::descriptions(m_tree);
}

} // namespace tessivo

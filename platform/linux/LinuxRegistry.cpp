#include "platform/linux/LinuxRegistry.h"

#include "platform/linux/Firmware.h"
#include "platform/linux/NetworkInterfaces.h"
#include "platform/linux/PowerSupplies.h"
#include "platform/linux/UsbDevices.h"

namespace tessivo {

namespace {

std::vector<RegistryEntry> platformExpert(const SystemTree& tree) {
    PropertyMap properties;
    if (auto model = Firmware::model(tree)) properties["model"] = *model;
    if (auto serial = Firmware::serialNumber(tree)) properties["IOPlatformSerialNumber"] = *serial;
    return {RegistryEntry{"IOPlatformExpertDevice", properties, nullptr}};
}

} // namespace

LinuxRegistry::LinuxRegistry(SystemTree tree) : m_tree(std::move(tree)) {}

std::optional<std::vector<RegistryEntry>>
LinuxRegistry::matchingServices(const std::string& className) const {
    if (className == "IOPlatformExpertDevice") return platformExpert(m_tree);
    if (className == "AppleSmartBattery") return PowerSupplies::batteries(m_tree);
    if (className == "IOUSBHostDevice") return UsbDevices::entries(m_tree);
    if (className == "IONetworkInterface") return NetworkInterfaces::entries(m_tree);
    return std::vector<RegistryEntry>();
}

LinuxPowerSources::LinuxPowerSources(SystemTree tree) : m_tree(std::move(tree)) {}

std::optional<PropertyList> LinuxPowerSources::descriptions() const {
    return PowerSupplies::descriptions(m_tree);
}

} // namespace tessivo

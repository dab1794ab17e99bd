#include "app/readers/Readers.h"
#include "kit/hardware/RegistryNames.h"

#include <algorithm>

namespace tessivo {

std::vector<USBDevice> readUSBDevices(const Registry& registry) {
    std::vector<USBDevice> devices;
    if (const auto services = registry.matchingServices(RegistryClass::usbDevice))
        for (const RegistryEntry& service : *services)
            if (service.properties) devices.push_back(USBDevice::make(*service.properties));
    std::stable_sort(devices.begin(), devices.end(), [](const USBDevice& one, const USBDevice& other) {
        return one.locationID < other.locationID;
    });
    return devices;
}

} // namespace tessivo

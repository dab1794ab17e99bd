#include "kit/hardware/USBDevice.h"

#include "kit/hardware/RegistryNames.h"

#include <iterator>

namespace tessivo {
namespace {

constexpr std::int64_t appleVendorID = 1452;
constexpr std::int64_t hubClass = 9;

} // namespace

USBDevice USBDevice::make(const PropertyMap& properties) {
    USBDevice device;
    const auto productName = text(properties, RegistryKey::productName);
    device.name = productName ? *productName : text(properties, "kUSBProductString").value_or("USB device");
    device.vendor = text(properties, RegistryKey::vendorName);
    device.vendorID = integer(properties, RegistryKey::vendorID).value_or(0);
    device.productID = integer(properties, RegistryKey::productID).value_or(0);
    device.locationID = std::uint32_t(integer(properties, RegistryKey::locationID).value_or(0));
    device.speed = integer(properties, RegistryKey::deviceSpeed);
    device.deviceClass = integer(properties, RegistryKey::deviceClass);
    // Not the Mac's "non-removable", which a keyboard in one case with a hub outside has too.
    device.builtIn = boolean(properties, RegistryKey::solderedIn).value_or(false);
    return device;
}

std::string USBDevice::id() const {
    return std::to_string(locationID) + "-" + std::to_string(vendorID) + "-" + std::to_string(productID);
}

bool USBDevice::isHub() const {
    return deviceClass == hubClass;
}

bool USBDevice::isInternalHub() const {
    return vendorID == appleVendorID && isHub();
}

std::optional<std::string> USBDevice::speedText() const {
    static constexpr const char* texts[] = {"1.5 Mb/s (USB 1)", "12 Mb/s (USB 1)", "480 Mb/s (USB 2)",
                                            "5 Gb/s (USB 3)",   "10 Gb/s (USB 3)", "20 Gb/s (USB 3)"};
    if (!speed || *speed < 0 || *speed >= std::ssize(texts)) return std::nullopt;
    return texts[*speed];
}

std::string USBDevice::summary() const {
    const auto speed = speedText();
    return speed ? name + " · " + *speed : name;
}

} // namespace tessivo

#include "platform/linux/UsbDevices.h"

#include "kit/hardware/RegistryNames.h"

#include <algorithm>
#include <array>

namespace tessivo {

namespace {

const std::string folder = "sys/bus/usb/devices/";

// Mb/s as the kernel prints them, in the order of the registry's codes.
constexpr std::array<std::string_view, 6> speeds = {"1.5", "12", "480", "5000", "10000", "20000"};

std::optional<std::int64_t> speedCode(const std::string& text) {
    const auto found = std::ranges::find(speeds, text);
    if (found == speeds.end()) return std::nullopt;
    return found - speeds.begin();
}

/// Root hubs are named "usb1", interfaces "1-2:1.0".
bool isDevice(const std::string& name) {
    return !name.starts_with("usb") && name.find(':') == std::string::npos;
}

/// Whether every step from the device up to the root hub is soldered in; a hub outside calls its own
/// keyboard fixed.
bool isBuiltIn(const SystemTree& tree, std::string name) {
    while (tree.text(folder + name + "/removable") == "fixed") {
        const std::size_t dot = name.rfind('.');
        if (dot == std::string::npos) return true;
        name.resize(dot);
    }
    return false;
}

/// Nothing if the device has gone.
std::optional<PropertyMap> properties(const SystemTree& tree, const std::string& name,
                                      const SystemFolder& device) {
    PropertyMap out;
    const auto addHex = [&](const char* key, const std::string& text, std::int64_t largest) {
        if (const auto value = wholeNumber(text, 16); value && *value >= 0 && *value <= largest)
            out[key] = *value;
    };
    if (auto product = device.text("product")) out[RegistryKey::productName] = std::move(*product);
    if (auto vendor = device.text("manufacturer")) out[RegistryKey::vendorName] = std::move(*vendor);
    if (const auto kind = device.text(RegistryKey::deviceClass))
        addHex(RegistryKey::deviceClass, *kind, 0xff);
    if (const auto speed = device.text("speed"))
        if (const auto code = speedCode(*speed)) out[RegistryKey::deviceSpeed] = *code;
    if (isBuiltIn(tree, name)) out[RegistryKey::solderedIn] = true;
    // From the name and not from files: a place that failed to read once would look like another device.
    if (const auto location = UsbDevices::locationID(name))
        out[RegistryKey::locationID] = std::int64_t(*location);
    // Last, since every device has them: where they can be read, it was there all along.
    const auto vendorID = device.text(RegistryKey::vendorID);
    const auto productID = device.text(RegistryKey::productID);
    if (!vendorID || !productID) return std::nullopt;
    addHex(RegistryKey::vendorID, *vendorID, 0xffff);
    addHex(RegistryKey::productID, *productID, 0xffff);
    return out;
}

/// Whether the device told all that it ever will. What is absent may have failed to read for once, and one
/// that isn't authorized yet has no names of its own.
bool isWhole(const PropertyMap& properties, const SystemFolder& device) {
    for (const char* key : {RegistryKey::productName, RegistryKey::vendorName, RegistryKey::deviceClass,
                            RegistryKey::deviceSpeed})
        if (!properties.contains(key)) return false;
    return device.text("authorized") != "0";
}

} // namespace

std::optional<std::vector<RegistryEntry>> UsbDevices::entries() {
    const auto names = m_tree.names(folder);
    const auto place = m_tree.folder(folder);
    if (!names || !place) return std::nullopt;
    std::map<std::string, Known> known;
    std::vector<RegistryEntry> out;
    for (const std::string& name : *names) {
        if (!isDevice(name)) continue;
        auto old = m_known.find(name);
        if (old != m_known.end() && place->stamp(name) == old->second.stamp) {
            out.push_back({RegistryClass::usbDevice, old->second.properties, nullptr});
            known.insert(m_known.extract(old));
            continue;
        }
        const auto device = m_tree.folder(folder + name);
        // Before what is read, so that a change in the midst of it makes the stamp another one.
        const auto stamp = device ? device->stamp() : std::nullopt;
        auto read = device ? properties(m_tree, name, *device) : std::nullopt;
        if (read && stamp && isWhole(*read, *device)) known.emplace(name, Known{*stamp, *read});
        out.push_back({RegistryClass::usbDevice, std::move(read), nullptr});
    }
    m_known = std::move(known);
    return out;
}

std::optional<std::uint32_t> UsbDevices::locationID(const std::string& name) {
    const std::size_t dash = name.find('-');
    if (dash == std::string::npos) return std::nullopt;
    const auto bus = wholeNumber(std::string_view(name).substr(0, dash));
    if (!bus || *bus < 0 || *bus > 0xff) return std::nullopt;
    std::uint32_t location = std::uint32_t(*bus) << 24;
    int shift = 20;
    std::size_t start = dash + 1;
    for (bool isRoot = true; start <= name.size(); isRoot = false, shift -= 4) {
        const std::size_t end = std::min(name.find('.', start), name.size());
        const auto port = wholeNumber(std::string_view(name).substr(start, end - start));
        start = end + 1;
        // A root hub alone can have more than 15 ports; what four bits don't hold goes beside the bus, so
        // that two ports never share a number.
        if (!port || *port < 1 || *port > (isRoot ? 0xff : 0xf) || shift < 0) return std::nullopt;
        location |= (std::uint32_t(*port) & 0xf) << shift;
        if (isRoot) location ^= (std::uint32_t(*port) >> 4) << 28;
    }
    return location;
}

} // namespace tessivo

#include "platform/linux/UsbDevices.h"

#include <array>
#include <utility>

namespace tessivo::UsbDevices {

namespace {

const std::string folder = "sys/bus/usb/devices/";

// Mb/s as the kernel prints them, in the order of the registry's codes.
constexpr std::array speeds = {"1.5", "12", "480", "5000", "10000", "20000"};

std::optional<std::int64_t> speedCode(const SystemTree& tree, const std::string& device) {
    const auto text = tree.text(device + "/speed");
    for (std::size_t code = 0; code < speeds.size(); ++code)
        if (text == speeds[code]) return std::int64_t(code);
    return std::nullopt;
}

/// Root hubs are named "usb1", interfaces "1-2:1.0".
bool isDevice(const std::string& name) {
    return !name.starts_with("usb") && name.find(':') == std::string::npos;
}

RegistryEntry entry(const SystemTree& tree, const std::string& name) {
    const std::string device = folder + name;
    // Every device has its numbers; where the files are missing the device has gone.
    const auto gone = [&] {
        return !tree.exists(device + "/idVendor") || !tree.exists(device + "/idProduct");
    };
    PropertyMap properties;
    const auto addText = [&](const char* key, const char* file) {
        if (auto value = tree.text(device + file)) properties[key] = *value;
    };
    const auto addHex = [&](const char* key, const char* file, std::int64_t largest) {
        const auto value = tree.number(device + file, 16);
        if (value && *value >= 0 && *value <= largest) properties[key] = *value;
    };
    addText("USB Product Name", "/product");
    addText("USB Vendor Name", "/manufacturer");
    addHex("idVendor", "/idVendor", 0xffff);
    addHex("idProduct", "/idProduct", 0xffff);
    addHex("bDeviceClass", "/bDeviceClass", 0xff);
    if (const auto code = speedCode(tree, device)) properties["Device Speed"] = *code;
    // From the name and not from files: a place that failed to read once would look like another device.
    if (const auto location = locationID(name)) properties["locationID"] = std::int64_t(*location);
    RegistryEntry out{"IOUSBHostDevice", std::move(properties), nullptr};
    if (gone()) out.properties.reset();
    return out;
}

} // namespace

std::optional<std::vector<RegistryEntry>> entries(const SystemTree& tree) {
    const auto names = tree.names(folder);
    if (!names) return std::nullopt;
    std::vector<RegistryEntry> out;
    for (const std::string& name : *names)
        if (isDevice(name)) out.push_back(entry(tree, name));
    return out;
}

std::optional<std::uint32_t> locationID(const std::string& name) {
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

} // namespace tessivo::UsbDevices

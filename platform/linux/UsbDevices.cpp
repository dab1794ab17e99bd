#include "platform/linux/UsbDevices.h"

#include <algorithm>
#include <array>

namespace tessivo::UsbDevices {

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
std::optional<PropertyMap> properties(const SystemTree& tree, const std::string& name) {
    const auto device = tree.folder(folder + name);
    if (!device) return std::nullopt;
    PropertyMap out;
    const auto addHex = [&](const char* key, const std::string& text, std::int64_t largest) {
        if (const auto value = wholeNumber(text, 16); value && *value >= 0 && *value <= largest)
            out[key] = *value;
    };
    if (auto product = device->text("product")) out["USB Product Name"] = std::move(*product);
    if (auto vendor = device->text("manufacturer")) out["USB Vendor Name"] = std::move(*vendor);
    if (const auto kind = device->text("bDeviceClass")) addHex("bDeviceClass", *kind, 0xff);
    if (const auto speed = device->text("speed"))
        if (const auto code = speedCode(*speed)) out["Device Speed"] = *code;
    if (isBuiltIn(tree, name)) out["SolderedIn"] = true;
    // From the name and not from files: a place that failed to read once would look like another device.
    if (const auto location = locationID(name)) out["locationID"] = std::int64_t(*location);
    // Last, since every device has them: where they can be read, it was there all along.
    const auto vendorID = device->text("idVendor");
    const auto productID = device->text("idProduct");
    if (!vendorID || !productID) return std::nullopt;
    addHex("idVendor", *vendorID, 0xffff);
    addHex("idProduct", *productID, 0xffff);
    return out;
}

} // namespace

std::optional<std::vector<RegistryEntry>> entries(const SystemTree& tree) {
    const auto names = tree.names(folder);
    if (!names) return std::nullopt;
    std::vector<RegistryEntry> out;
    for (const std::string& name : *names)
        if (isDevice(name)) out.push_back({"IOUSBHostDevice", properties(tree, name), nullptr});
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

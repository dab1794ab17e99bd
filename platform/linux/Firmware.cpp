#include "platform/linux/Firmware.h"

#include "kit/catalog/Boards.h"
#include "kit/catalog/SpecCatalog.h"
#include "kit/support/Text.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tessivo::Firmware {

namespace {

// In lower case and without a full stop at the end.
constexpr std::array<std::string_view, 19> fillers = {
    "to be filled by o.e.m",
    "to be filled by oem",
    "default string",
    "none",
    "not specified",
    "not applicable",
    "not available",
    "not provided",
    "n/a",
    "na",
    "unknown",
    "system serial number",
    "system product name",
    "product name",
    "unknown product",
    "empty",
    "oem",
    "o.e.m",
    "invalid",
};

bool isFiller(const std::string& value) {
    std::string plain = Text::lowercased(value);
    while (!plain.empty() && plain.back() == '.')
        plain.pop_back();
    if (std::ranges::count(fillers, plain) > 0) return true;
    // "0", "00000000", "xxxxxxxx", "......", "--": one sign over and over tells nothing.
    return plain.find_first_not_of(plain.empty() ? ' ' : plain.front()) == std::string::npos;
}

std::optional<std::string> firstReal(const SystemTree& tree, std::initializer_list<const char*> files) {
    for (const char* file : files)
        if (auto value = tree.text(file); value && !isFiller(*value)) return value;
    return std::nullopt;
}

constexpr const char* productName = "sys/class/dmi/id/product_name";
constexpr const char* productSerial = "sys/class/dmi/id/product_serial";
constexpr const char* treeSerial = "sys/firmware/devicetree/base/serial-number";

/// Nothing where the device tree isn't that of an Apple machine.
std::optional<std::vector<std::string>> appleBoard(const SystemTree& tree) {
    auto compatible =
        Boards::entries(tree.bytes("sys/firmware/devicetree/base/compatible").value_or(std::string()));
    if (!Boards::isApplePlatform(compatible)) return std::nullopt;
    return compatible;
}

} // namespace

bool isMac(const SystemTree& tree) {
    if (appleBoard(tree)) return true;
    // "Apple Inc."; the oldest say "Apple Computer, Inc.".
    if (tree.text("sys/class/dmi/id/sys_vendor").value_or("").starts_with("Apple ")) return true;
    return SpecCatalog::kind(tree.text(productName).value_or("")).has_value();
}

std::optional<std::string> model(const SystemTree& tree) {
    if (const auto board = appleBoard(tree)) return Boards::modelID(*board);
    return firstReal(tree, {productName});
}

std::optional<std::string> appleChip(const SystemTree& tree) {
    const auto board = appleBoard(tree);
    return board ? Boards::chip(*board) : std::nullopt;
}

std::optional<std::string> serialNumber(const SystemTree& tree) {
    if (appleBoard(tree)) return firstReal(tree, {treeSerial, productSerial});
    return firstReal(tree, {productSerial, treeSerial});
}

} // namespace tessivo::Firmware

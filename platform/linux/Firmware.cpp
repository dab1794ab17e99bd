#include "platform/linux/Firmware.h"

#include "kit/support/Text.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tessivo::Firmware {

namespace {

// In lower case and without a full stop at the end.
constexpr std::array<std::string_view, 18> fillers = {
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
    "empty",
    "oem",
    "o.e.m",
    "invalid",
};

bool isFiller(const std::string& value) {
    std::string plain = Text::lowercased(value);
    while (!plain.empty() && plain.back() == '.')
        plain.pop_back();
    if (std::find(fillers.begin(), fillers.end(), plain) != fillers.end()) return true;
    // "0", "00000000", "xxxxxxxx", "......", "--": one sign over and over tells nothing.
    return plain.find_first_not_of(plain.empty() ? ' ' : plain.front()) == std::string::npos;
}

std::optional<std::string> firstReal(const SystemTree& tree, std::initializer_list<const char*> files) {
    for (const char* file : files)
        if (auto value = tree.text(file); value && !isFiller(*value)) return value;
    return std::nullopt;
}

} // namespace

std::optional<std::string> model(const SystemTree& tree) {
    return firstReal(tree, {"sys/class/dmi/id/product_name", "sys/firmware/devicetree/base/model"});
}

std::optional<std::string> serialNumber(const SystemTree& tree) {
    return firstReal(tree, {"sys/class/dmi/id/product_serial", "sys/firmware/devicetree/base/serial-number"});
}

} // namespace tessivo::Firmware

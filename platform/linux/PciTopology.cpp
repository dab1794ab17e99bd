#include "platform/linux/PciTopology.h"

#include <algorithm>

namespace tessivo {

namespace {

constexpr std::int64_t intel = 0x8086;
constexpr std::int64_t thunderboltClass = 0x088000; // "other system peripheral", as Intel's controllers say
constexpr std::int64_t usb4Class = 0x0c0340;
/// The ports of Thunderbolt controllers that are part of the processor (Ice Lake). They share their bus with
/// everything else on the board, so that the controller beside them tells nothing.
constexpr std::int64_t thunderboltPorts[] = {0x8a1d, 0x8a1f, 0x8a21, 0x8a23};

bool isHexadecimal(std::string_view digits) {
    return digits.find_first_not_of("0123456789abcdefABCDEF") == std::string_view::npos;
}

std::vector<std::string> functionsBelow(const SystemTree& tree, const std::string& bridge) {
    auto names = tree.names(bridge).value_or(std::vector<std::string>());
    std::erase_if(names, [](const std::string& name) { return !isPciFunction(name); });
    for (std::string& name : names)
        name = bridge + "/" + name;
    return names;
}

bool isController(const SystemTree& tree, const std::string& function) {
    const auto kind = tree.number(function + "/class", 16);
    return kind == usb4Class || (kind == thunderboltClass && tree.number(function + "/vendor", 16) == intel);
}

/// A Thunderbolt controller is a switch: one of the ports below `bridge` leads to the controller itself, the
/// others out to the plugs.
bool carriesController(const SystemTree& tree, const std::string& bridge) {
    for (const std::string& port : functionsBelow(tree, bridge))
        for (const std::string& function : functionsBelow(tree, port))
            if (isController(tree, function)) return true;
    return false;
}

bool isThunderboltPort(const SystemTree& tree, const std::string& bridge) {
    const auto device = tree.number(bridge + "/device", 16);
    return device && tree.number(bridge + "/vendor", 16) == intel &&
           std::ranges::count(thunderboltPorts, *device) > 0;
}

} // namespace

bool isPciFunction(const std::string& path) {
    const std::string_view name = std::string_view(path).substr(path.rfind('/') + 1);
    constexpr std::size_t tail = 8; // ":03:00.0"
    if (name.size() < tail + 4) return false;
    const std::string_view end = name.substr(name.size() - tail);
    return end[0] == ':' && end[3] == ':' && end[6] == '.' &&
           isHexadecimal(name.substr(0, name.size() - tail)) && isHexadecimal(end.substr(1, 2)) &&
           isHexadecimal(end.substr(4, 2)) && isHexadecimal(end.substr(7));
}

bool isOnCable(const SystemTree& tree, const std::string& device) {
    std::string path = tree.resolved(device).value_or("");
    for (std::size_t slash = path.rfind('/'); slash != std::string::npos; slash = path.rfind('/')) {
        if (isPciFunction(path) && (tree.text(path + "/removable") == "removable" ||
                                    isThunderboltPort(tree, path) || carriesController(tree, path)))
            return true;
        path.resize(slash);
    }
    return false;
}

} // namespace tessivo

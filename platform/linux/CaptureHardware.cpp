#include "platform/linux/CaptureHardware.h"

#include <algorithm>
#include <sstream>

namespace tessivo::CaptureHardware {
namespace {

constexpr std::int64_t apple = 0x106b, broadcom = 0x14e4, amd = 0x1002, nvidia = 0x10de;
constexpr std::int64_t securityChip = 0x1801; ///< the bridge to the chip that holds a Mac's own camera
constexpr std::int64_t cameraOnPCI = 0x1570;
constexpr std::int64_t soundCodec = 0x0401, soundController = 0x0403; ///< PCI class and subclass
constexpr std::int64_t videoClass = 0x0e;                             ///< of a USB interface

/// Whether a device of a bus without a driver fits.
template <class Fits>
bool anyWithoutDriver(const SystemTree& tree, const std::string& bus, Fits fits) {
    const std::string folder = "sys/bus/" + bus + "/devices";
    return std::ranges::any_of(tree.names(folder).value_or(std::vector<std::string>()),
                               [&](const std::string& name) {
                                   const std::string device = folder + "/" + name;
                                   return !tree.linkName(device + "/driver") && fits(device);
                               });
}

/// A laptop or an all-in-one, which always has a camera and a microphone of its own.
bool hasScreen(const SystemTree& tree) {
    for (const char* file : {"sys/class/dmi/id/product_name", "sys/firmware/devicetree/base/model"})
        if (const auto model = tree.text(file))
            if (model->find("MacBook") != std::string::npos || model->find("iMac") != std::string::npos)
                return true;
    return false;
}

bool isAppleSilicon(const SystemTree& tree) {
    const auto compatible = tree.bytes("sys/firmware/devicetree/base/compatible");
    return compatible && compatible->find("apple,arm-platform") != std::string::npos;
}

} // namespace

bool hasSoundCard(const SystemTree& tree) {
    std::istringstream cards(tree.text("proc/asound/cards").value_or(""));
    std::string line;
    while (std::getline(cards, line)) // " 0 [PCH            ]: HDA-Intel - HDA Intel PCH"
        if (const auto first = line.find_first_not_of(' ');
            first != std::string::npos && line[first] >= '0' && line[first] <= '9')
            return true;
    return false;
}

bool hasOwnMicrophone(const SystemTree& tree) {
    // "00-00: ALC295 Analog : ALC295 Analog : playback 1 : capture 1"
    return hasScreen(tree) &&
           tree.text("proc/asound/pcm").value_or("").find(": capture ") != std::string::npos;
}

bool hasSoundWithoutDriver(const SystemTree& tree) {
    // Its microphones hang on a processor of their own, behind a driver of its own.
    if (isAppleSilicon(tree) && hasScreen(tree)) return true;
    return anyWithoutDriver(tree, "pci", [&](const std::string& device) {
        const auto vendor = tree.number(device + "/vendor", 16);
        const auto kind = tree.number(device + "/class", 16).value_or(0) >> 8;
        // A graphics card's sound goes to its screens and takes nothing in.
        return (kind == soundCodec || kind == soundController) && vendor != amd && vendor != nvidia;
    });
}

bool hasCameraWithoutDriver(const SystemTree& tree) {
    if (isAppleSilicon(tree)) {
        // The camera hangs on the image processor; a kernel that doesn't know that one can't show it.
        const std::string folder = "sys/bus/platform/devices";
        const auto devices = tree.names(folder).value_or(std::vector<std::string>());
        const auto driven = [&](const std::string& name) {
            return name.ends_with(".isp") && tree.linkName(folder + "/" + name + "/driver");
        };
        if (hasScreen(tree) && std::ranges::none_of(devices, driven)) return true;
    }
    const bool onPCI = anyWithoutDriver(tree, "pci", [&](const std::string& device) {
        const auto vendor = tree.number(device + "/vendor", 16), id = tree.number(device + "/device", 16);
        return (vendor == broadcom && id == cameraOnPCI) ||
               (vendor == apple && id == securityChip && hasScreen(tree));
    });
    return onPCI || anyWithoutDriver(tree, "usb", [&](const std::string& device) {
               return tree.number(device + "/bInterfaceClass", 16) == videoClass;
           });
}

bool isVirtualCamera(const SystemTree& tree, const std::string& name) {
    const auto device = tree.resolved("sys/class/video4linux/" + name);
    return device && device->find("devices/virtual/") != std::string::npos;
}

} // namespace tessivo::CaptureHardware

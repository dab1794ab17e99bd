#include "platform/linux/PermanentKeys.h"

#include "platform/linux/InternalDrives.h"
#include "platform/linux/NetworkInterfaces.h"

namespace tessivo::PermanentKeys {

namespace {

/// Drives without a name of their own carry one of zeros: "eui.0000000000000000".
bool namesADrive(const std::string& name) {
    const std::size_t start = name.find('.') + 1;
    return name.find_first_not_of("0-", start) != std::string::npos;
}

void addDrives(const SystemTree& tree, HardwareKeys& keys) {
    const auto add = [&](const std::string& file) {
        if (auto name = tree.text(file); name && namesADrive(*name)) keys.drives.insert(std::move(*name));
    };
    for (const auto& drive : InternalDrives::list(tree).value_or(std::vector<InternalDrives::Drive>())) {
        const std::string controller = drive.folder.substr(drive.folder.rfind('/') + 1);
        if (!controller.starts_with("nvme")) {
            add(drive.folder + "/device/wwid");
            continue;
        }
        // A namespace is "nvme0n1" below the controller "nvme0".
        for (const std::string& below : tree.names(drive.folder).value_or(std::vector<std::string>()))
            if (below.starts_with(controller)) add(drive.folder + "/" + below + "/wwid");
    }
}

} // namespace

HardwareKeys read(const SystemTree& tree) {
    HardwareKeys keys;
    NetworkInterfaces::addPermanentAddresses(tree, keys);
    addDrives(tree, keys);
    return keys;
}

} // namespace tessivo::PermanentKeys

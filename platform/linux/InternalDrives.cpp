#include "platform/linux/InternalDrives.h"

#include "kit/catalog/SpecCatalog.h"
#include "kit/support/Text.h"
#include "platform/linux/Firmware.h"
#include "platform/linux/PciTopology.h"

#include <algorithm>
#include <limits>
#include <map>

namespace tessivo::InternalDrives {

namespace {

constexpr std::int64_t sectorBytes = 512; // of every "size" file, whatever the drive's own sectors are

/// "ata1" for the prefix "ata".
bool isNumbered(std::string_view name, std::string_view prefix) {
    return name.starts_with(prefix) && name.size() > prefix.size() &&
           name.find_first_not_of("0123456789", prefix.size()) == std::string_view::npos;
}

bool passesThrough(const std::string& path, std::string_view prefix) {
    for (std::size_t start = 0; start < path.size();) {
        const std::size_t end = std::min(path.find('/', start), path.size());
        if (isNumbered(std::string_view(path).substr(start, end - start), prefix)) return true;
        start = end + 1;
    }
    return false;
}

std::string above(const std::string& path) {
    return path.substr(0, path.rfind('/'));
}

/// A namespace lies in its controller's folder, or, where the kernel looks for several paths to it, in one of
/// its own that has links to the controllers.
std::optional<std::string> controller(const SystemTree& tree, const std::string& device) {
    const std::string folder = above(device);
    if (isNumbered(folder.substr(folder.rfind('/') + 1), "nvme")) return folder;
    if (folder.find("/nvme-subsystem/") == std::string::npos) return std::nullopt;
    for (const std::string& name : tree.names(folder).value_or(std::vector<std::string>()))
        if (isNumbered(name, "nvme")) return tree.resolved(folder + "/" + name);
    return std::nullopt;
}

/// The drive that a block device belongs to, or nothing for one that isn't an internal drive's.
std::optional<std::string> driveFolder(const SystemTree& tree, const std::string& name,
                                       const std::string& device) {
    std::optional<std::string> drive;
    if (name.starts_with("nvme")) drive = controller(tree, device);
    const bool isDisk = name.starts_with("sd") || name.starts_with("vd");
    if (isDisk && (passesThrough(device, "ata") || passesThrough(device, "virtio"))) drive = device;
    // Controllers over a network are virtual devices too.
    if (!drive || drive->starts_with("sys/devices/virtual/")) return std::nullopt;
    if (passesThrough(*drive, "usb") || passesThrough(*drive, "fw") || isOnCable(tree, *drive))
        return std::nullopt;
    if (tree.number(device + "/removable").value_or(0) != 0) return std::nullopt;
    return drive;
}

/// 0 for a device without a medium.
std::optional<std::int64_t> size(const SystemTree& tree, const std::string& device) {
    const auto sectors = tree.number(device + "/size");
    if (!sectors || *sectors < 0 || *sectors > std::numeric_limits<std::int64_t>::max() / sectorBytes)
        return std::nullopt;
    return *sectors * sectorBytes;
}

/// What udev keeps of a disk or a partition.
bool isApples(const SystemTree& tree, const std::string& device) {
    const auto number = tree.text(device + "/dev");
    if (!number) return false;
    for (const std::string& raw : Text::lines(tree.text("run/udev/data/b" + *number).value_or(""))) {
        const std::string line = Text::lowercased(raw);
        // All of Apple's partition types end alike: APFS and its two of the start, HFS+, Core Storage.
        if (line.starts_with("e:id_part_entry_type=") && line.ends_with("-11aa-aa11-00306543ecac"))
            return true;
        if (line == "e:id_fs_type=apfs" || line == "e:id_fs_type=hfsplus") return true;
    }
    return false;
}

bool holdsApples(const SystemTree& tree, const std::string& device) {
    if (isApples(tree, device)) return true;
    for (const std::string& name : tree.names(device).value_or(std::vector<std::string>()))
        if (tree.exists(device + "/" + name + "/partition") && isApples(tree, device + "/" + name))
            return true;
    return false;
}

bool isSoldWithFusion(const SystemTree& tree) {
    const ModelSpec* row = SpecCatalog::spec(Firmware::model(tree).value_or(""));
    return row && !row->fusion.empty();
}

} // namespace

std::optional<std::vector<Drive>> list(const SystemTree& tree) {
    const std::string folder = "sys/block/";
    const auto names = tree.names(folder);
    if (!names) return std::nullopt;
    std::map<std::string, Drive> drives;
    for (const std::string& name : *names) {
        const auto device = tree.resolved(folder + name);
        const auto place = device ? driveFolder(tree, name, *device) : std::nullopt;
        if (!place) continue;
        const auto bytes = size(tree, *device);
        auto [entry, isNew] = drives.try_emplace(*place, Drive{*place, bytes, false});
        Drive& drive = entry->second;
        // A namespace whose size can't be read may be the largest.
        if (!isNew)
            drive.bytes = bytes && drive.bytes ? std::optional(std::max(*bytes, *drive.bytes)) : std::nullopt;
        drive.hasApplePartition = drive.hasApplePartition || holdsApples(tree, *device);
    }
    std::vector<Drive> out;
    for (auto& [place, drive] : drives) {
        if (drive.bytes == 0) drive.bytes.reset();
        out.push_back(std::move(drive));
    }
    return out;
}

std::optional<std::int64_t> capacity(const SystemTree& tree) {
    const auto drives = list(tree);
    if (!drives || drives->empty()) return std::nullopt;
    if (drives->size() == 1) return drives->front().bytes;
    std::vector<Drive> apples;
    std::ranges::copy_if(*drives, std::back_inserter(apples), &Drive::hasApplePartition);
    if (apples.size() == 1) return apples.front().bytes;
    if (apples.size() != 2 || !isSoldWithFusion(tree)) return std::nullopt;
    const auto &first = apples[0].bytes, &second = apples[1].bytes;
    std::int64_t sum = 0;
    if (!first || !second || __builtin_add_overflow(*first, *second, &sum)) return std::nullopt;
    return sum;
}

} // namespace tessivo::InternalDrives

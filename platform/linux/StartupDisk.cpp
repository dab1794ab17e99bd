#include "platform/linux/StartupDisk.h"

#include "kit/support/Text.h"

#include <limits>
#include <set>
#include <sstream>
#include <sys/statvfs.h>

namespace tessivo::StartupDisk {

namespace {

constexpr std::int64_t sectorBytes = 512; // of every "size" file, whatever the disk's own sectors are
constexpr int deepestStack = 16;

struct Mount {
    std::string device; // "254:0"
    std::string source; // "/dev/vda1"
};

std::optional<Mount> rootMount(const SystemTree& tree) {
    const auto table = tree.bytes("proc/self/mountinfo");
    if (!table) return std::nullopt;
    std::optional<Mount> found;
    for (const std::string& line : Text::lines(Text::repaired(*table))) {
        std::istringstream words(line);
        std::string id, parent, device, root, point, word, type, source;
        words >> id >> parent >> device >> root >> point;
        while (words >> word && word != "-") {
        }
        words >> type >> source;
        // A later mount on the same folder lies over the earlier one.
        if (point == "/" && type != "rootfs") found = Mount{device, source};
    }
    return found;
}

/// Where sysfs keeps the device of a mount. File systems of several devices (number 0:x) name their
/// source instead.
std::optional<std::string> deviceFolder(const SystemTree& tree, const Mount& mount) {
    if (auto folder = tree.resolved("sys/dev/block/" + mount.device)) return folder;
    constexpr std::string_view devices = "/dev/";
    if (!mount.source.starts_with(devices)) return std::nullopt;
    const std::string name = mount.source.substr(mount.source.rfind('/') + 1);
    if (name.empty() || name == "." || name == "..") return std::nullopt;
    if (auto folder = tree.resolved("sys/class/block/" + name)) return folder;
    for (const std::string& device : tree.names("sys/class/block").value_or(std::vector<std::string>()))
        if (tree.text("sys/class/block/" + device + "/dm/name") == name)
            return tree.resolved("sys/class/block/" + device);
    return std::nullopt;
}

void collectDisks(const SystemTree& tree, const std::string& folder, int depth,
                  std::set<std::string>& disks) {
    if (depth > deepestStack) return;
    const auto slaves = tree.names(folder + "/slaves");
    if (slaves && !slaves->empty()) {
        for (const std::string& slave : *slaves)
            if (const auto below = tree.resolved(folder + "/slaves/" + slave))
                collectDisks(tree, *below, depth + 1, disks);
        return;
    }
    if (tree.exists(folder + "/partition"))
        collectDisks(tree, folder.substr(0, folder.rfind('/')), depth + 1, disks);
    else
        disks.insert(folder);
}

std::optional<std::int64_t> size(const SystemTree& tree, const std::string& folder) {
    const auto sectors = tree.number(folder + "/size");
    if (!sectors || *sectors <= 0 || *sectors > std::numeric_limits<std::int64_t>::max() / sectorBytes)
        return std::nullopt;
    return *sectors * sectorBytes;
}

std::optional<std::int64_t> fileSystemSize(const SystemTree& tree) {
    struct statvfs status {};
    if (!tree.isThisComputer() || ::statvfs("/", &status) != 0) return std::nullopt;
    std::int64_t bytes = 0;
    if (__builtin_mul_overflow(status.f_blocks, status.f_frsize, &bytes) || bytes <= 0) return std::nullopt;
    return bytes;
}

} // namespace

std::optional<std::int64_t> capacity(const SystemTree& tree) {
    const auto mount = rootMount(tree);
    const auto folder = mount ? deviceFolder(tree, *mount) : std::nullopt;
    if (folder) {
        std::set<std::string> disks;
        collectDisks(tree, *folder, 0, disks);
        if (disks.size() == 1)
            if (const auto whole = size(tree, *disks.begin())) return whole;
        if (disks.size() > 1)
            if (const auto formed = size(tree, *folder)) return formed;
    }
    return fileSystemSize(tree);
}

} // namespace tessivo::StartupDisk

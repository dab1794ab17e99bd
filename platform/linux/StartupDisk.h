#pragma once

#include "platform/linux/SystemTree.h"

namespace tessivo::StartupDisk {

/// Size in bytes of the whole disk behind "/": through partitions, encryption, logical volumes and
/// arrays down to the disk. Where several disks are behind it, the size of the device they form. For a
/// file system without a block device of its own, the file system's size (of this computer only).
std::optional<std::int64_t> capacity(const SystemTree& tree);

} // namespace tessivo::StartupDisk

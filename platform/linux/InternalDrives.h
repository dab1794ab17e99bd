#pragma once

#include "platform/linux/SystemTree.h"

/// The drives inside the computer: NVMe and SATA, on the board or in a slot, and a virtual machine's own.
/// Never what hangs on a plug (USB, Thunderbolt, USB4, FireWire), what can be taken out, cards, discs, the
/// network's drives, or devices that are made of others (partitions, volumes, arrays, loops, memory).
namespace tessivo::InternalDrives {

struct Drive {
    std::string folder;                ///< below the tree's root: an NVMe controller or a SATA disk
    std::optional<std::int64_t> bytes; ///< of an NVMe controller its largest namespace
    bool hasApplePartition = false;    ///< a file system or partition of macOS, as udev keeps their kinds
};

/// In the order of their folders. Nothing if the system has no list of block devices.
std::optional<std::vector<Drive>> list(const SystemTree& tree);

/// Size in bytes of the drive that came with the computer, whatever system runs from where: the only
/// internal drive, or of several the one with an Apple partition. Two with Apple partitions are one Fusion
/// Drive, their sum, on a model that was sold with one. Else, or if a size can't be read, nothing.
std::optional<std::int64_t> capacity(const SystemTree& tree);

} // namespace tessivo::InternalDrives

#pragma once

#include "platform/linux/SystemTree.h"

namespace tessivo::InstalledMemory {

/// Installed memory in bytes, or nothing. What the kernel can use ("MemTotal") is less: kernel, firmware and
/// graphics keep a part. So these are asked in turn, and a figure below MemTotal is passed over:
/// 1. the modules that the firmware lists, as udev keeps them: their sum;
/// 2. the memory blocks that the kernel has online, together. They can lack what the firmware keeps: on an
///    Intel Mac they come first only as whole gigabytes, with Apple silicon never;
/// 3. on a Mac the smallest size that Macs are sold with and that isn't below MemTotal, if MemTotal lacks at
///    most 12 % of that size;
/// 4. the memory blocks after all, else MemTotal.
std::optional<std::int64_t> bytes(const SystemTree& tree);

} // namespace tessivo::InstalledMemory

#pragma once

#include "kit/hardware/HardwareKeys.h"
#include "platform/linux/SystemTree.h"

namespace tessivo::PermanentKeys {

/// The addresses of built-in network devices and the worldwide names of internal drives.
HardwareKeys read(const SystemTree& tree);

} // namespace tessivo::PermanentKeys

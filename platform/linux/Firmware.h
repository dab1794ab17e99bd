#pragma once

#include "platform/linux/SystemTree.h"

/// What the firmware says of the machine: DMI tables or the device tree. A board maker's filler such as
/// "To Be Filled By O.E.M." counts as unread.
namespace tessivo::Firmware {

std::optional<std::string> model(const SystemTree& tree);
/// Readable by an administrator alone on most machines with DMI.
std::optional<std::string> serialNumber(const SystemTree& tree);

} // namespace tessivo::Firmware

#pragma once

#include "platform/linux/SystemTree.h"

/// What the firmware says of the machine: DMI tables or the device tree. A board maker's filler such as
/// "To Be Filled By O.E.M." counts as unread. On a Mac with Apple silicon the device tree speaks first: the
/// DMI tables that a boot loader makes up there name the chip, or nothing, as the product.
namespace tessivo::Firmware {

/// Whether this is a Mac, of Intel's or of Apple's processors.
bool isMac(const SystemTree& tree);

/// A Mac's model identifier, or another machine's product name. A device tree tells it by its board alone,
/// never by its text for people; an unknown board has none.
std::optional<std::string> model(const SystemTree& tree);

/// The chip by the device tree, beginning with "Apple"; nothing on any other machine.
std::optional<std::string> appleChip(const SystemTree& tree);

/// From the file that holds it, if this user may read that: of a machine with DMI an administrator alone,
/// of one with a device tree everyone. Nobody is asked for rights.
std::optional<std::string> serialNumber(const SystemTree& tree);

} // namespace tessivo::Firmware

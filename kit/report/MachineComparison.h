#pragma once

#include "kit/hardware/MachineInfo.h"
#include "kit/report/ComparedItem.h"

namespace tessivo {

/// Whether two reports are about one Mac. `contradicting`: one serial number on two models.
enum class SameMac { yes, no, contradicting, cantTell };
BOOST_DESCRIBE_ENUM(SameMac, yes, no, contradicting, cantTell)

/// What two reports say of the machine itself. Pure functions, any thread.
namespace MachineComparison {

/// Never `yes` without a serial number and a model on both sides. Chip and system words decide nothing.
SameMac sameMac(const MachineInfo& before, const MachineInfo& after);

/// The serial number without blanks around it; nothing where none was read.
std::optional<std::string> serial(const MachineInfo& machine);

/// Serial number, model and memory, each where a report tells it. Only memory can be worse.
std::vector<ComparedItem> items(const MachineInfo& before, const MachineInfo& after);

/// What the drive's size adds to the item of the storage test; the item may be one without a test's words.
/// Drives of one size are those that are sold as one size.
void addDrive(ComparedItem& storage, const MachineInfo& before, const MachineInfo& after);

} // namespace MachineComparison
} // namespace tessivo

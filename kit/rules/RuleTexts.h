#pragma once

#include "kit/hardware/MachineInfo.h"
#include "kit/session/PortChecklist.h"

/// Words that pages show beside the rules' results, so that no page decides or words anything itself.
namespace tessivo::Rules {

extern const char* const activationLockHowTo;
extern const char* const batteryHint; ///< where macOS itself shows the battery's health
extern const char* const noEthernetPort;
extern const char* const oneSpeaker;
extern const char* const leftSpeaker;
extern const char* const rightSpeaker;

/// Sizes in table units as a list: "256 GB, 512 GB, 1 TB".
std::string sizeList(const std::vector<std::int64_t>& sizes);
/// What to know of a drive that can be replaced; empty where it can't be.
std::string replaceableDriveNote(const MachineInfo& machine);
/// What the row of a port says, `active` if it waits for a device.
std::string portRow(const PortSlot& slot, bool active);

} // namespace tessivo::Rules

#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// Words of the rules that a page shows as well, so that each stands once.
namespace tessivo::Rules {

extern const char* const activationLockHowTo;
extern const char* const batteryHint; ///< where macOS itself shows the battery's health
extern const char* const noEthernetPort;
extern const char* const replaceableDrive;
extern const char* const oneSpeaker;
extern const char* const leftSpeaker;
extern const char* const rightSpeaker;

/// Sizes in table units as a list: "256 GB, 512 GB, 1 TB".
std::string sizeList(const std::vector<std::int64_t>& sizes);

} // namespace tessivo::Rules

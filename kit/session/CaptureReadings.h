#pragma once

#include "kit/hardware/CaptureDevice.h"
#include "kit/session/CameraReading.h"
#include "kit/session/MicReading.h"

#include <algorithm>
#include <vector>

namespace tessivo {

/// The readings of microphones or cameras for a new device list: known ids keep theirs whole, gone devices
/// lose theirs.
template <class Reading>
std::vector<Reading> relisted(const std::vector<Reading>& old, const std::vector<CaptureDevice>& devices) {
    std::vector<Reading> readings;
    for (const CaptureDevice& device : devices) {
        const auto known = std::ranges::find(old, device.uniqueID, &Reading::id);
        if (known != old.end())
            readings.push_back(*known);
        else
            readings.push_back({.id = device.uniqueID, .name = device.localizedName});
    }
    return readings;
}

} // namespace tessivo

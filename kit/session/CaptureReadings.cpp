#include "kit/session/CaptureReadings.h"

#include "kit/hardware/LevelMeter.h"

#include <algorithm>
#include <cmath>

namespace tessivo {
namespace {

template <class Reading>
std::vector<Reading> keepKnown(const std::vector<Reading>& old, const std::vector<CaptureDevice>& devices) {
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

} // namespace

bool MicReading::heardSound() const {
    return peak && *peak >= LevelMeter::threshold;
}

void MicReading::hear(double decibels) {
    if (std::isfinite(decibels) && (!peak || *peak < decibels)) peak = decibels;
}

std::vector<MicReading> relisted(const std::vector<MicReading>& old,
                                 const std::vector<CaptureDevice>& devices) {
    return keepKnown(old, devices);
}

std::vector<CameraReading> relisted(const std::vector<CameraReading>& old,
                                    const std::vector<CaptureDevice>& devices) {
    return keepKnown(old, devices);
}

} // namespace tessivo

#include "kit/session/MicReading.h"

#include "kit/hardware/LevelMeter.h"

#include <cmath>

namespace tessivo {

bool MicReading::heardSound() const {
    return peak && *peak >= LevelMeter::threshold;
}

void MicReading::hear(double decibels) {
    if (std::isfinite(decibels) && (!peak || *peak < decibels)) peak = decibels;
}

} // namespace tessivo

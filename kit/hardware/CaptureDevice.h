#pragma once

#include <string>

namespace tessivo {

/// A microphone or camera as the platform lists it.
struct CaptureDevice {
    std::string uniqueID;
    std::string localizedName;

    bool operator==(const CaptureDevice&) const = default;
};

} // namespace tessivo

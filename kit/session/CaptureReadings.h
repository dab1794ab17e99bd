#pragma once

#include "kit/vocabulary/ManualAnswer.h"

#include <optional>
#include <string>
#include <vector>

namespace tessivo {

/// One microphone of the session. Peak is the loudest level heard so far, in dB.
struct MicReading {
    std::string id;
    std::string name;
    std::optional<double> peak;
    bool failed = false;

    bool heardSound() const;
    /// Keeps the louder of the two; a value that isn't a number is passed over.
    void hear(double decibels);

    bool operator==(const MicReading&) const = default;
};
BOOST_DESCRIBE_STRUCT(MicReading, (), (id, name, peak, failed))

/// One camera of the session.
struct CameraReading {
    std::string id;
    std::string name;
    bool framesSeen = false;
    bool failed = false;
    ManualAnswer answer = ManualAnswer::unanswered;

    bool operator==(const CameraReading&) const = default;
};
BOOST_DESCRIBE_STRUCT(CameraReading, (), (id, name, framesSeen, failed, answer))

/// A capture device as the platform lists it.
struct CaptureDevice {
    std::string uniqueID;
    std::string localizedName;

    bool operator==(const CaptureDevice&) const = default;
};

/// The readings for a new device list: known ids keep theirs whole, gone devices lose theirs.
std::vector<MicReading> relisted(const std::vector<MicReading>& old,
                                 const std::vector<CaptureDevice>& devices);
std::vector<CameraReading> relisted(const std::vector<CameraReading>& old,
                                    const std::vector<CaptureDevice>& devices);

} // namespace tessivo

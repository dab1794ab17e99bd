#pragma once

#include "kit/support/Describe.h"

#include <optional>
#include <string>

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

} // namespace tessivo

#pragma once

#include "kit/vocabulary/ManualAnswer.h"

#include <string>

namespace tessivo {

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

} // namespace tessivo

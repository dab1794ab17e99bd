#pragma once

#include "platform/Capture.h"

#include <map>

namespace tessivo {

/// What a Mac does through interfaces that C has no face for, as a test moves it.
struct StandInCocoa {
    static StandInCocoa& shared();
    static void reset() { shared() = {}; }

    std::map<MediaType, std::int64_t> access;         ///< the system's numbers
    std::vector<std::function<void(bool)>> questions; ///< to the person, not answered yet
};

} // namespace tessivo

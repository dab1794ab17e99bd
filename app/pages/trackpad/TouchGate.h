#pragma once

#include "platform/FingerTouches.h"

#include <map>

namespace tessivo {

/// Which touches on the trackpad count: one that began while the surface was open to it, until it is lifted,
/// wherever the pointer has gone meanwhile. Pure, one thread.
class TouchGate final {
public:
    /// Of all fingers now down those that count. `open` is whether a touch that begins now does.
    std::vector<FingerPosition> admit(const std::vector<FingerPosition>& fingers, bool open);

private:
    std::map<std::int64_t, bool> m_down; ///< by touch: whether it counts
};

} // namespace tessivo

#pragma once

#include "platform/FingerTouches.h"

#include <optional>

namespace tessivo {

/// Two-finger scroll and pinch, told from where two fingers go: together, or apart and towards each other.
/// For window systems that deliver neither as events of a touchpad. Pure, one thread.
class TouchpadGestures final {
public:
    /// The fingers after each report, in the device's order. A scroll or a zoom once it has become plain,
    /// each at most once while the two fingers stay down.
    std::optional<Gesture> handle(const std::vector<FingerPosition>& fingers);

private:
    void begin(const std::vector<FingerPosition>& fingers);

    std::vector<FingerPosition> m_start; // empty unless exactly two fingers are down
    std::vector<FingerPosition> m_last;
    bool m_scrolled = false;
    bool m_zoomed = false;
};

} // namespace tessivo

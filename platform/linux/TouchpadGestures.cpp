#include "platform/linux/TouchpadGestures.h"

#include <cmath>

namespace tessivo {
namespace {

// Parts of the surface.
constexpr double plainWay = 0.06;
constexpr double jump = 0.25; // further than a finger goes between two reports: another finger

double distance(const FingerPosition& a, const FingerPosition& b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

FingerPosition middle(const std::vector<FingerPosition>& two) {
    return {(two[0].x + two[1].x) / 2, (two[0].y + two[1].y) / 2};
}

} // namespace

void TouchpadGestures::begin(const std::vector<FingerPosition>& fingers) {
    m_start = m_last = fingers;
    m_scrolled = m_zoomed = false;
}

std::optional<Gesture> TouchpadGestures::handle(const std::vector<FingerPosition>& fingers) {
    if (fingers.size() != 2) {
        begin({});
        return std::nullopt;
    }
    if (m_start.empty() || distance(m_last[0], fingers[0]) > jump || distance(m_last[1], fingers[1]) > jump) {
        begin(fingers);
        return std::nullopt;
    }
    m_last = fingers;
    const double together = distance(middle(m_start), middle(fingers));
    const double apart = std::abs(distance(m_start[0], m_start[1]) - distance(fingers[0], fingers[1]));
    if (!m_scrolled && together >= plainWay && together > 2 * apart) {
        m_scrolled = true;
        return Gesture::scroll;
    }
    if (!m_zoomed && apart >= plainWay && apart > 2 * together) {
        m_zoomed = true;
        return Gesture::zoom;
    }
    return std::nullopt;
}

} // namespace tessivo

#include "app/pages/trackpad/TouchGate.h"

namespace tessivo {

std::vector<FingerPosition> TouchGate::admit(const std::vector<FingerPosition>& fingers, bool open) {
    std::map<std::int64_t, bool> down;
    std::vector<FingerPosition> admitted;
    for (const FingerPosition& finger : fingers) {
        const auto known = m_down.find(finger.touch);
        const bool counts = known == m_down.end() ? open : known->second;
        down.emplace(finger.touch, counts);
        if (counts) admitted.push_back(finger);
    }
    m_down = std::move(down);
    return admitted;
}

} // namespace tessivo

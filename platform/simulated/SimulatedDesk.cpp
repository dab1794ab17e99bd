#include "platform/simulated/SimulatedDesk.h"

namespace tessivo {

bool SimulatedDesktop::canOpenURL(const std::string& url) const {
    return m_mac.hasSettings || !url.starts_with("x-apple.systempreferences:");
}

} // namespace tessivo

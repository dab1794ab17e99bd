#include "platform/simulated/SimulatedDesk.h"

#include <QScreen>
#include <QWindow>

namespace tessivo {

bool SimulatedDesktop::canOpenURL(const std::string& url) const {
    return m_mac.hasSettings || !url.starts_with("x-apple.systempreferences:");
}

void SimulatedDesktop::coverScreen(QWindow& window, QScreen& screen) {
    window.setScreen(&screen);
    window.setGeometry(screen.geometry());
    window.showFullScreen();
}

} // namespace tessivo

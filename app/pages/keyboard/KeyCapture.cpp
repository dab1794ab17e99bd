#include "app/pages/keyboard/KeyCapture.h"

#include <utility>

namespace tessivo {

void KeyCapture::start(std::function<void(KeyCode)> onKey) {
    if (m_running) return;
    m_onKey = std::move(onKey);
    m_running = true;
    if (m_changed) m_changed();
}

void KeyCapture::stop() {
    if (!m_running) return;
    m_running = false;
    m_flash.reset();
    if (m_changed) m_changed();
}

void KeyCapture::handle(KeyMark mark, KeyCode code) {
    if (!m_running || mark == KeyMark::release || mark == KeyMark::repeat) return;
    const auto before = std::exchange(m_flash, code);
    if (m_onKey) m_onKey(code);
    if (code == esc && before == esc) stop();
}

} // namespace tessivo

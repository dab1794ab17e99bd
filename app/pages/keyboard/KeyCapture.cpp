#include "app/pages/keyboard/KeyCapture.h"

#include <algorithm>

namespace tessivo {

bool KeyCapture::isModifier(KeyCode code) {
    static constexpr KeyCode modifiers[] = {54, 55, 56, 57, 58, 59, 60, 61, 62, 63};
    return std::ranges::binary_search(modifiers, code);
}

void KeyCapture::start(std::function<void(KeyCode)> onKey) {
    if (m_running) return;
    m_onKey = std::move(onKey);
    m_lastCode.reset();
    m_running = true;
    if (m_changed) m_changed();
}

void KeyCapture::stop() {
    if (!m_running) return;
    m_running = false;
    m_flash.reset();
    m_lastCode.reset();
    if (m_changed) m_changed();
}

void KeyCapture::handle(KeyMark mark, KeyCode code) {
    if (!m_running || mark == KeyMark::release || mark == KeyMark::repeat) return;
    if (m_onKey) m_onKey(code);
    // Whoever was told may have ended the run.
    if (!m_running) return;
    if (code == esc && m_lastCode == esc) {
        stop();
        return;
    }
    m_lastCode = code;
    if (m_flash == code) return;
    m_flash = code;
    if (m_changed) m_changed();
}

} // namespace tessivo

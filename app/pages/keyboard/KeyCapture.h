#pragma once

#include "platform/KeyEvents.h"

#include <functional>

namespace tessivo {

/// The keyboard test while it runs: which key events count as a key seen, which key was the last, and when
/// two Esc end it. Knows no window; the platform's key events feed it. Main thread.
class KeyCapture final {
public:
    static constexpr KeyCode esc = 53;

    /// `changed` is called after `running` has changed.
    explicit KeyCapture(std::function<void()> changed = {}) : m_changed(std::move(changed)) {}

    bool running() const { return m_running; }
    /// The last key seen in this run, also while `onKey` is told of it.
    std::optional<KeyCode> flash() const { return m_flash; }

    /// Begins a run; `onKey` is told every key seen. Nothing while one runs.
    void start(std::function<void(KeyCode)> onKey);
    void stop();

    /// One event of the run; nothing while none runs. Releases and repeats are no keys seen. The second of
    /// two Esc with no key between them is told and then ends the run.
    void handle(KeyMark mark, KeyCode code);

private:
    std::function<void()> m_changed;
    std::function<void(KeyCode)> m_onKey;
    bool m_running = false;
    std::optional<KeyCode> m_flash;
};

} // namespace tessivo

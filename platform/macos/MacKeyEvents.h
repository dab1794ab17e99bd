#pragma once

#include "platform/KeyEvents.h"
#include "platform/macos/MacKeyMonitor.h"

#include <QObject>
#include <set>

namespace tessivo {

/// The virtual key codes as the system tells them. The monitor begins with the first listener and stays: with
/// nobody listening it keeps the keys that a listener took until they are up, and passes all others on.
class MacKeyEvents final : public KeyEvents {
public:
    void start(Listener listener, std::function<KeyboardLayout::ID()> layout) override;
    void stop() override { m_listener = nullptr; }

private:
    bool take(const MacKeyEvent& event);
    bool takePress(const MacKeyEvent& event, const Listener& listener);
    bool takeChange(const MacKeyEvent& event, const Listener& listener);

    Listener m_listener;
    std::set<KeyCode> m_kept; ///< keys that went down, were taken and aren't up
    std::shared_ptr<void> m_monitor;
    QObject m_context;
};

} // namespace tessivo

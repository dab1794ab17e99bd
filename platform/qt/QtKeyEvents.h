#pragma once

#include "platform/KeyEvents.h"

#include <QObject>
#include <set>

class QKeyEvent;

namespace tessivo {

/// Key events out of Qt's, by the scan codes that X11 and Wayland report: presses, releases, repeats, menu
/// shortcuts, Alt, Tab and Return. While somebody listens no input method takes part. A key that the listener
/// doesn't take goes on as a plain key, whatever shortcut it would be. Main thread.
class QtKeyEvents final : public QObject, public KeyEvents {
public:
    void start(Listener listener, std::function<KeyboardLayout::ID()> layout) override;
    void stop() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool takesKeys() const;
    bool handleKey(QEvent* event);
    bool isRepeat(const QKeyEvent& key) const;
    /// Whether the listener takes the key.
    bool tell(bool release, bool repeat, std::uint32_t scanCode);

    Listener m_listener; // empty while nobody listens
    std::function<KeyboardLayout::ID()> m_layout;
    std::set<std::uint32_t> m_down; // scan codes that went down while somebody listened
    std::uint32_t m_releasedKey = 0;
    quint64 m_releasedAt = 0; // milliseconds of the window system; 0 where it tells none
};

} // namespace tessivo

#pragma once

#include "app/pages/keyboard/KeyCapture.h"

#include <QObject>
#include <set>

class QKeyEvent;

namespace tessivo {

class KeyCodes;

/// Gives every key event of the program to a running KeyCapture and to nobody else: presses, releases,
/// repeats, menu shortcuts, Alt, Tab and Return; while it runs no input method takes part. Keys that went
/// down in a run are kept from the program until they come up, also past its end. While another program or a
/// dialog of this one has the keyboard, the run waits. Main thread.
class KeyMonitor final : public QObject {
    Q_OBJECT
public:
    /// All outlive the monitor. `layout` is asked at each key: it decides the codes of two of them.
    KeyMonitor(const KeyCodes& keyCodes, KeyCapture& capture, std::function<KeyboardLayout::ID()> layout,
               QObject* parent = nullptr);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool takesKeys() const;
    bool handleKey(QEvent* event);
    bool isRepeat(const QKeyEvent& key) const;

    const KeyCodes& m_keyCodes;
    KeyCapture& m_capture;
    std::function<KeyboardLayout::ID()> m_layout;
    std::set<std::uint32_t> m_down; // scan codes that went down in a run
    std::uint32_t m_releasedKey = 0;
    quint64 m_releasedAt = 0; // milliseconds of the window system; 0 where it tells none
};

} // namespace tessivo

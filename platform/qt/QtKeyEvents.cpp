#include "platform/qt/QtKeyEvents.h"

#include "platform/KeyCodeTable.h"

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QInputMethod>
#include <QKeyEvent>

namespace tessivo {

void QtKeyEvents::start(Listener listener, std::function<KeyboardLayout::ID()> layout) {
    m_listener = std::move(listener);
    m_layout = std::move(layout);
    // On the application: it sees an event before the window, its menus and its shortcuts do.
    qApp->installEventFilter(this);
    // The answer for whatever has the focus is another one now.
    QGuiApplication::inputMethod()->update(Qt::ImEnabled);
}

void QtKeyEvents::stop() {
    if (!m_listener) return;
    m_listener = nullptr;
    QGuiApplication::inputMethod()->update(Qt::ImEnabled);
}

bool QtKeyEvents::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return handleKey(event);
    case QEvent::Shortcut:
    case QEvent::InputMethod:
        return takesKeys();
    case QEvent::InputMethodQuery:
        if (!takesKeys()) return false;
        // An input method would take keys for itself before any of them is seen here.
        static_cast<QInputMethodQueryEvent*>(event)->setValue(Qt::ImEnabled, false);
        return true;
    case QEvent::ContextMenu:
        return takesKeys() && static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard;
    case QEvent::ApplicationStateChange:
        // Releases that happen elsewhere are never seen here.
        if (QGuiApplication::applicationState() != Qt::ApplicationActive) m_down.clear();
        return false;
    default:
        return QObject::eventFilter(watched, event);
    }
}

bool QtKeyEvents::takesKeys() const {
    return m_listener && !QGuiApplication::modalWindow();
}

bool QtKeyEvents::isRepeat(const QKeyEvent& key) const {
    // An X server repeats a held key as a release and a press of one time. Qt sees the pair only where both
    // have arrived when it reads the first.
    return key.isAutoRepeat() || (key.type() == QEvent::KeyPress && m_releasedAt != 0 &&
                                  m_releasedAt == key.timestamp() && m_releasedKey == key.nativeScanCode());
}

bool QtKeyEvents::handleKey(QEvent* event) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const std::uint32_t scanCode = key->nativeScanCode();
    const bool release = event->type() == QEvent::KeyRelease;
    const bool tail = (release || key->isAutoRepeat()) && m_down.contains(scanCode);
    if (!takesKeys() && !tail) {
        m_down.erase(scanCode); // pressed anew since: the program's own again
        return false;
    }
    // An accepted override makes the press that follows a plain key, whatever shortcut it would be.
    event->accept();
    if (event->type() == QEvent::ShortcutOverride) return true;
    const bool repeat = isRepeat(*key);
    if (release && !repeat) {
        m_down.erase(scanCode);
        m_releasedKey = scanCode;
        m_releasedAt = key->timestamp();
    } else {
        m_down.insert(scanCode);
    }
    // Where a dialog is open, or nobody listens any more, the tail of a key is kept and not told.
    const bool taken = !takesKeys() || tell(release, repeat, scanCode);
    if (!taken) m_down.erase(scanCode);
    return taken;
}

bool QtKeyEvents::tell(bool release, bool repeat, std::uint32_t scanCode) {
    const auto code = KeyCodeTable::virtualKeyCode(scanCode, m_layout());
    if (!code) return true;
    const KeyMark mark = repeat                            ? KeyMark::repeat
                         : KeyCodeTable::isModifier(*code) ? KeyMark::modifierChange
                         : release                         ? KeyMark::release
                                                           : KeyMark::press;
    // A copy: the listener may stop itself.
    const Listener listener = m_listener;
    return listener(mark, *code);
}

} // namespace tessivo

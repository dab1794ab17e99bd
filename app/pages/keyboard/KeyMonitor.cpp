#include "app/pages/keyboard/KeyMonitor.h"

#include "platform/Input.h"

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>

namespace tessivo {

KeyMonitor::KeyMonitor(const KeyCodes& keyCodes, KeyCapture& capture,
                       std::function<KeyboardLayout::ID()> layout, QObject* parent)
    : QObject(parent), m_keyCodes(keyCodes), m_capture(capture), m_layout(std::move(layout)) {
    // On the application: it sees an event before the window, its menus and its shortcuts do.
    qApp->installEventFilter(this);
    connect(qApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        // Releases that happen elsewhere are never seen here.
        if (state != Qt::ApplicationActive) m_down.clear();
    });
}

bool KeyMonitor::eventFilter(QObject* watched, QEvent* event) {
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
    default:
        return QObject::eventFilter(watched, event);
    }
}

bool KeyMonitor::takesKeys() const {
    return m_capture.running() && !QGuiApplication::modalWindow();
}

bool KeyMonitor::isRepeat(const QKeyEvent& key) const {
    // An X server repeats a held key as a release and a press of one time. Qt sees the pair only where both
    // have arrived when it reads the first.
    return key.isAutoRepeat() || (key.type() == QEvent::KeyPress && m_releasedAt != 0 &&
                                  m_releasedAt == key.timestamp() && m_releasedKey == key.nativeScanCode());
}

bool KeyMonitor::handleKey(QEvent* event) {
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

    if (const auto code = m_keyCodes.virtualKeyCode(scanCode, m_layout())) {
        const KeyMark mark = repeat                          ? KeyMark::repeat
                             : KeyCapture::isModifier(*code) ? KeyMark::modifierChange
                             : release                       ? KeyMark::release
                                                             : KeyMark::press;
        m_capture.handle(mark, *code);
    }
    return true;
}

} // namespace tessivo

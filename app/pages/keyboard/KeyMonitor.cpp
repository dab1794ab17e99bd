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
        return m_capture.running();
    case QEvent::InputMethodQuery:
        if (!m_capture.running()) return false;
        // An input method would take keys for itself before any of them is seen here.
        static_cast<QInputMethodQueryEvent*>(event)->setValue(Qt::ImEnabled, false);
        return true;
    case QEvent::ContextMenu:
        return m_capture.running() &&
               static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard;
    default:
        return QObject::eventFilter(watched, event);
    }
}

bool KeyMonitor::handleKey(QEvent* event) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const std::uint32_t scanCode = key->nativeScanCode();
    const bool release = event->type() == QEvent::KeyRelease;
    const bool tail = (release || key->isAutoRepeat()) && m_down.contains(scanCode);
    if (!m_capture.running() && !tail) {
        m_down.erase(scanCode); // pressed anew since: the program's own again
        return false;
    }
    // An accepted override makes the press that follows a plain key, whatever shortcut it would be.
    event->accept();
    if (event->type() == QEvent::ShortcutOverride) return true;
    if (release && !key->isAutoRepeat())
        m_down.erase(scanCode);
    else
        m_down.insert(scanCode);

    if (const auto code = m_keyCodes.virtualKeyCode(scanCode, m_layout())) {
        const KeyMark mark = key->isAutoRepeat()             ? KeyMark::repeat
                             : KeyCapture::isModifier(*code) ? KeyMark::modifierChange
                             : release                       ? KeyMark::release
                                                             : KeyMark::press;
        m_capture.handle(mark, *code);
    }
    return true;
}

} // namespace tessivo

#include "platform/macos/MacKeyEvents.h"

#include <QGuiApplication>
#include <algorithm>

namespace tessivo {

namespace {

constexpr KeyCode capsLock = 57;

/// A modifier's bit among the flags and, where its keyboard tells left from right, the key's own.
struct Modifier {
    KeyCode code;
    std::uint64_t flag;
    std::uint64_t ownBit;
    std::uint64_t twinBit;
};

constexpr Modifier modifiers[] = {
    {56, 1u << 17, 0x0002, 0x0004}, {60, 1u << 17, 0x0004, 0x0002}, // shift
    {59, 1u << 18, 0x0001, 0x2000}, {62, 1u << 18, 0x2000, 0x0001}, // control
    {58, 1u << 19, 0x0020, 0x0040}, {61, 1u << 19, 0x0040, 0x0020}, // option
    {55, 1u << 20, 0x0008, 0x0010}, {54, 1u << 20, 0x0010, 0x0008}, // command
    {63, 1u << 23, 0, 0},                                           // fn
    {capsLock, 1u << 16, 0, 0},
};

bool isDown(const Modifier& modifier, std::uint64_t flags) {
    return (flags & modifier.flag) && ((flags & modifier.ownBit) || !(flags & modifier.twinBit));
}

} // namespace

void MacKeyEvents::start(Listener listener, std::function<KeyboardLayout::ID()>) {
    m_listener = std::move(listener);
    if (m_monitor) return;
    m_monitor = monitorKeys([this](const MacKeyEvent& event) { return take(event); });
    QObject::connect(qGuiApp, &QGuiApplication::applicationStateChanged, &m_context,
                     [this](Qt::ApplicationState state) {
                         // Releases that happen elsewhere are never seen here.
                         if (state != Qt::ApplicationActive) m_kept.clear();
                     });
}

bool MacKeyEvents::take(const MacKeyEvent& event) {
    const bool hears = event.inKeyWindow && !event.inDialog && !QGuiApplication::modalWindow();
    // A copy: a listener may stop itself.
    const Listener listener = hears ? m_listener : nullptr;
    switch (event.kind) {
    case MacKeyEvent::Kind::down:
        return takePress(event, listener);
    case MacKeyEvent::Kind::up: {
        const bool kept = m_kept.erase(event.code) > 0;
        return (listener && listener(KeyMark::release, event.code)) || kept;
    }
    case MacKeyEvent::Kind::flagsChanged:
        return takeChange(event, listener);
    }
    return false;
}

bool MacKeyEvents::takePress(const MacKeyEvent& event, const Listener& listener) {
    const bool kept = event.isRepeat && m_kept.contains(event.code);
    if (!kept) m_kept.erase(event.code); // pressed anew: the program's own, unless it is taken again
    if (!listener || !listener(event.isRepeat ? KeyMark::repeat : KeyMark::press, event.code)) return kept;
    m_kept.insert(event.code);
    return true;
}

bool MacKeyEvents::takeChange(const MacKeyEvent& event, const Listener& listener) {
    // The system tells a change of flags with another code where flags changed while it looked elsewhere.
    const auto* modifier = std::ranges::find(modifiers, event.code, &Modifier::code);
    if (modifier == std::end(modifiers)) return false;
    const bool kept = m_kept.erase(event.code) > 0;
    const bool taken = listener && listener(KeyMark::modifierChange, event.code);
    // Caps Lock tells of its light: once a press, and never of a release.
    if (taken && event.code != capsLock && isDown(*modifier, event.modifierFlags)) m_kept.insert(event.code);
    return taken || (kept && !isDown(*modifier, event.modifierFlags));
}

} // namespace tessivo

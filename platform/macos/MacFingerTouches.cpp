#include "platform/macos/MacFingerTouches.h"

namespace tessivo {

namespace {

constexpr std::int64_t deepClick = 2; ///< stage of pressure

} // namespace

void MacFingerTouches::start(QWindow* window, Handlers handlers) {
    stop();
    if (!window) return;
    const auto tell = [handler = std::move(handlers.gesture)](const MacPointerEvent& event) {
        const auto gesture = MacFingerTouches::gesture(event);
        if (gesture && handler) handler(*gesture);
        return gesture.has_value();
    };
    const auto touches = [handler = std::move(handlers.touches)](const std::vector<FingerPosition>& down) {
        if (handler) handler(down);
    };
    m_view = MacTouchView::make(*window, {touches, tell});
}

void MacFingerTouches::place(const QRect& visible) {
    if (m_view) m_view->place(visible);
}

std::optional<Gesture> MacFingerTouches::gesture(const MacPointerEvent& event) {
    switch (event.kind) {
    case MacPointerEvent::Kind::mouseDown:
        return event.hasControl ? Gesture::secondary : Gesture::click;
    case MacPointerEvent::Kind::rightMouseDown:
        return Gesture::secondary;
    case MacPointerEvent::Kind::pressure:
        return event.stage >= deepClick ? std::optional(Gesture::force) : std::nullopt;
    case MacPointerEvent::Kind::scroll:
        return event.isPrecise && event.isInAPhase ? std::optional(Gesture::scroll) : std::nullopt;
    case MacPointerEvent::Kind::magnify:
        return Gesture::zoom;
    }
    return std::nullopt;
}

} // namespace tessivo

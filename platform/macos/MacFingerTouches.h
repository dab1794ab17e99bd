#pragma once

#include "platform/macos/MacTouchView.h"

#include <optional>

namespace tessivo {

/// Fingers and gestures over the surface alone, from a view that lies over its visible part.
class MacFingerTouches final : public FingerTouches {
public:
    bool tellsOfEveryWindow() const override { return false; }
    void start(QWindow* window, Handlers handlers) override;
    void place(const QRect& visible) override;
    void stop() override { m_view.reset(); }

    /// Which gesture an event is; nothing for one that is the window's: a plain wheel scrolls the page.
    static std::optional<Gesture> gesture(const MacPointerEvent& event);

private:
    std::unique_ptr<MacTouchView> m_view;
};

} // namespace tessivo

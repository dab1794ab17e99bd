#pragma once

#include "platform/FingerTouches.h"

#include <QRect>
#include <memory>

namespace tessivo {

/// What the pointer did over the surface, as the system tells it.
struct MacPointerEvent {
    enum class Kind { mouseDown, rightMouseDown, pressure, scroll, magnify };

    Kind kind = Kind::mouseDown;
    bool hasControl = false; ///< the key labelled control
    std::int64_t stage = 0;  ///< of pressure: 1 a click, 2 a deep one
    bool isPrecise = false;  ///< scrolled by fingers on a surface, not by a wheel
    bool isInAPhase = false; ///< of fingers that scroll, or of what they set going
};

/// A view of the system's own over a part of a window, for what its window system tells to views alone. Main
/// thread.
class MacTouchView {
public:
    struct Handlers {
        std::function<void(const std::vector<FingerPosition>&)> touches; ///< all fingers down
        /// False: the event is the window's.
        std::function<bool(const MacPointerEvent&)> pointer;
    };

    static std::unique_ptr<MacTouchView> make(QWindow& window, Handlers handlers);
    virtual ~MacTouchView() = default;

    /// In the window's coordinates; hidden where it is empty.
    virtual void place(const QRect& visible) = 0;
};

} // namespace tessivo

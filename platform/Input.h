#pragma once

#include "kit/catalog/KeyboardLayout.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tessivo {

/// From the window system's hardware scan code of a key event to the Mac's virtual key code.
class KeyCodes {
public:
    virtual ~KeyCodes() = default;

    /// Nothing for a scan code that has no Mac key. The layout decides the two codes that ANSI and ISO
    /// keyboards swap.
    virtual std::optional<KeyCode> virtualKeyCode(std::uint32_t scanCode,
                                                  KeyboardLayout::ID layout) const = 0;
};

/// Where a finger is, both axes from 0 to 1; row 0 of the surface is at y 0.
struct FingerPosition {
    double x = 0;
    double y = 0;
    std::int64_t touch = 0; ///< the same from a finger's coming down to its lift

    /// The same place, whichever finger is there.
    bool operator==(const FingerPosition& other) const { return x == other.x && y == other.y; }
};

/// Fingers on the trackpad's surface and gestures that the window system doesn't deliver as events.
/// Main thread. A source that has no touchpad, or may not read it, calls nothing.
class FingerTouches {
public:
    struct Handlers {
        std::function<void(const std::vector<FingerPosition>&)>
            touches;                                     ///< all fingers now down; may be empty
        std::function<void(const std::string&)> gesture; ///< "click", "secondary", "force", "scroll", "zoom"
    };

    virtual ~FingerTouches() = default;

    /// True where fingers and gestures are told whichever window they work in: which of them are meant for
    /// it, the listener decides.
    virtual bool tellsOfEveryWindow() const = 0;
    /// Begins to call the handlers, until `stop` or a new `start`.
    virtual void start(Handlers handlers) = 0;
    virtual void stop() = 0;
};

} // namespace tessivo

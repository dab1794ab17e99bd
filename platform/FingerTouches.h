#pragma once

#include <cstdint>
#include <functional>
#include <vector>

class QRect;
class QWindow;

namespace tessivo {

/// Where a finger is, both axes from 0 to 1; row 0 of the surface is at y 0.
struct FingerPosition {
    double x = 0;
    double y = 0;
    std::int64_t touch = 0; ///< the same from a finger's coming down to its lift

    /// The same place, whichever finger is there.
    bool operator==(const FingerPosition& other) const { return x == other.x && y == other.y; }
};

/// What a person does with a trackpad besides moving the pointer. "Force" is the deep click of some of them.
enum class Gesture { click, secondary, force, scroll, zoom };

/// Fingers on the trackpad and gestures that the window system doesn't deliver as Qt's events, for the one
/// surface that they are meant for. Main thread. A source that has no touchpad, or may not read it, calls
/// nothing.
class FingerTouches {
public:
    struct Handlers {
        std::function<void(const std::vector<FingerPosition>&)>
            touches; ///< all fingers now down; may be empty
        std::function<void(Gesture)> gesture;
    };

    virtual ~FingerTouches() = default;

    /// True where fingers and gestures are told whichever window they work in: which of them are meant for
    /// it, the listener decides.
    virtual bool tellsOfEveryWindow() const = 0;
    /// Begins to call the handlers, until `stop` or a new `start`. `window` is the top-level window that the
    /// surface stands in; it may be null.
    virtual void start(QWindow* window, Handlers handlers) = 0;
    /// Where the surface is: its visible part in the window's coordinates, empty while it is hidden. Told
    /// after each `start` and at every change; without effect while nothing listens.
    virtual void place(const QRect& visible) = 0;
    virtual void stop() = 0;
};

} // namespace tessivo

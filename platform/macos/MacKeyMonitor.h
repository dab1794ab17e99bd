#pragma once

#include "kit/catalog/KeyboardLayout.h"

#include <functional>
#include <memory>

namespace tessivo {

/// One of the system's key events. Modifiers come as a change of flags alone.
struct MacKeyEvent {
    enum class Kind { down, up, flagsChanged };

    Kind kind = Kind::down;
    KeyCode code = 0;
    bool isRepeat = false;           ///< of a key that went down
    std::uint64_t modifierFlags = 0; ///< the device's own bits included
    bool inKeyWindow = false;        ///< a window of this program has the keyboard
    bool inDialog = false;           ///< that window is a panel or a sheet, or waits for one
};

/// Shows the system's key events before the program's menus see them, until what it gives is let go. True:
/// the event goes no further. Main thread.
std::shared_ptr<void> monitorKeys(std::function<bool(const MacKeyEvent&)> take);

} // namespace tessivo

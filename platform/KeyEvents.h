#pragma once

#include "kit/catalog/KeyboardLayout.h"

#include <functional>

namespace tessivo {

/// What a key did. A modifier has no press and release of its own: both are a change of state.
enum class KeyMark { press, repeat, release, modifierChange };

/// The key events of this program as a Mac's virtual key codes, for whoever tests keys: before menus,
/// shortcuts and input methods see them. Only while a window of this program has the keyboard and no dialog
/// is open. Main thread.
class KeyEvents {
public:
    /// True: the event is taken, and nobody else in the program sees it.
    using Listener = std::function<bool(KeyMark, KeyCode)>;

    virtual ~KeyEvents() = default;

    /// Calls the listener until `stop`, in place of an earlier one. An event of a key that no Mac has is
    /// taken and not told. `layout` is asked at each key: where the system gives scan codes it decides two of
    /// them.
    virtual void start(Listener listener, std::function<KeyboardLayout::ID()> layout) = 0;
    /// The listener isn't called again; it may stop itself. Keys that went down while it listened, and were
    /// taken, are still kept from the program until they come up.
    virtual void stop() = 0;
};

} // namespace tessivo

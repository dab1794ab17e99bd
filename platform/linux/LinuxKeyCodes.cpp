#include "platform/linux/LinuxKeyCodes.h"

#include "platform/KeyCodeTable.h"

namespace tessivo {

std::optional<KeyCode> LinuxKeyCodes::virtualKeyCode(std::uint32_t scanCode,
                                                     KeyboardLayout::ID layout) const {
    return KeyCodeTable::virtualKeyCode(scanCode, layout);
}

} // namespace tessivo

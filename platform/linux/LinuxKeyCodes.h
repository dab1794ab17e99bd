#pragma once

#include "platform/Input.h"

namespace tessivo {

/// The Mac's codes for the scan codes of X11 and Wayland.
class LinuxKeyCodes final : public KeyCodes {
public:
    std::optional<KeyCode> virtualKeyCode(std::uint32_t scanCode, KeyboardLayout::ID layout) const override;
};

} // namespace tessivo

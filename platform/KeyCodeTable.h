#pragma once

#include "platform/Input.h"

namespace tessivo {

/// From the scan codes that X11 and Wayland report (the kernel's key code + 8) to the Mac's virtual key
/// codes: every key of both diagrams, the keypad and F13 to F20. The kernel reports the key left of 1 and the
/// one beside the left shift alike on both keyboards; a Mac's ISO keyboard gives them other codes than an
/// ANSI one, so the layout in use decides these two. Pure, any thread.
class KeyCodeTable final : public KeyCodes {
public:
    std::optional<KeyCode> virtualKeyCode(std::uint32_t scanCode, KeyboardLayout::ID layout) const override;
};

} // namespace tessivo

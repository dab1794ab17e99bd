#pragma once

#include "kit/catalog/KeyboardLayout.h"

#include <cstdint>
#include <optional>

namespace tessivo {

/// From the scan codes that X11 and Wayland report (the kernel's key code + 8) to the Mac's virtual key
/// codes: every key of both diagrams, the keypad and F13 to F20. The kernel reports the key left of 1 and the
/// one beside the left shift alike on both keyboards; a Mac's ISO keyboard gives them other codes than an
/// ANSI one, so the layout in use decides these two. Pure, any thread.
namespace KeyCodeTable {

/// Nothing for a scan code that has no Mac key.
std::optional<KeyCode> virtualKeyCode(std::uint32_t scanCode, KeyboardLayout::ID layout);
/// Keys that a Mac reports by a change of state: shift, control, option, command, caps lock, fn.
bool isModifier(KeyCode code);

} // namespace KeyCodeTable

} // namespace tessivo

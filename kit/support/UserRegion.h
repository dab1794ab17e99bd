#pragma once

#include <string>

/// How the person writes dates and numbers, where the system tells it by a name of its own.
namespace tessivo::UserRegion {

/// An ICU locale identifier ("de_CH"), set once, before the first text. Empty, as at the start: the
/// environment tells it.
void set(std::string identifier);
const std::string& identifier();

} // namespace tessivo::UserRegion

#pragma once

#include "kit/support/Describe.h"

namespace tessivo {

/// A person's verdict on a speaker, a camera, a display, a key check or a port.
enum class ManualAnswer { unanswered, works, problem, notPresent };
BOOST_DESCRIBE_ENUM(ManualAnswer, unanswered, works, problem, notPresent)

} // namespace tessivo

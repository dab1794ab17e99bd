#pragma once

#include "kit/support/Describe.h"

namespace tessivo {

/// What the person read off in System Information; no program can read it.
enum class ActivationLockAnswer { unanswered, disabled, enabled };
BOOST_DESCRIBE_ENUM(ActivationLockAnswer, unanswered, disabled, enabled)

} // namespace tessivo

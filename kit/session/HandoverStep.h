#pragma once

#include "kit/support/Describe.h"

namespace tessivo {

/// What a seller does before the Mac changes hands, in this order. The case name is the raw value.
enum class HandoverStep { backup, music, findMy, appleAccount, bluetooth, erase, nvram };
BOOST_DESCRIBE_ENUM(HandoverStep, backup, music, findMy, appleAccount, bluetooth, erase, nvram)

} // namespace tessivo

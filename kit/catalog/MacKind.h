#pragma once

#include "kit/support/Describe.h"

namespace tessivo {

enum class MacKind { laptop, allInOne, desktop };
BOOST_DESCRIBE_ENUM(MacKind, laptop, allInOne, desktop)

} // namespace tessivo

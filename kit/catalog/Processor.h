#pragma once

#include "kit/support/Describe.h"

namespace tessivo {

/// `intelT2` is an Intel Mac with the T2 security chip.
enum class Processor { appleSilicon, intelT2, intel };
BOOST_DESCRIBE_ENUM(Processor, appleSilicon, intelT2, intel)

} // namespace tessivo

#pragma once

#include "app/look/Theme.h"
#include "kit/vocabulary/TestStatus.h"

namespace tessivo {

/// The colours of a status: for its words, and for its symbol alone.
ColorRole wordColor(TestStatus status);
ColorRole glyphColor(TestStatus status);

} // namespace tessivo

#pragma once

#include "platform/PersonalSettings.h"

namespace tessivo {

/// Sets up all texts for the person: once, in `main`, before the first of them.
void usePersonalSettings(const PersonalSettings& settings);

} // namespace tessivo

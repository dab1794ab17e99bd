#pragma once

#include "platform/PersonalSettings.h"

namespace tessivo {

/// What this Mac's settings tell of its person. A program opened from the Finder has no LANG.
class MacPersonalSettings final : public PersonalSettings {
public:
    std::string language() const override;
    std::string region() const override;
    std::optional<std::filesystem::path> resources() const override;
};

} // namespace tessivo

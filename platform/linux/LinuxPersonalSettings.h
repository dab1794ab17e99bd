#pragma once

#include "platform/PersonalSettings.h"

namespace tessivo {

/// The language that the environment prefers, and the folder of an installed program's shared data. Dates and
/// numbers follow the environment, which may set them apart.
class LinuxPersonalSettings final : public PersonalSettings {
public:
    std::string language() const override;
    std::string region() const override { return {}; }
    std::optional<std::filesystem::path> resources() const override;
};

} // namespace tessivo

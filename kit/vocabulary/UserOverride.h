#pragma once

#include "kit/support/Describe.h"

#include <optional>
#include <string>

namespace tessivo {

/// What the person testing ruled over the program's own finding. The note is kept as typed.
struct UserOverride {
    bool notIncluded = false;
    std::optional<std::string> problem;

    bool operator==(const UserOverride&) const = default;
};
BOOST_DESCRIBE_STRUCT(UserOverride, (), (notIncluded, problem))

} // namespace tessivo

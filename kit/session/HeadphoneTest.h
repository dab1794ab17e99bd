#pragma once

#include "kit/vocabulary/ManualAnswer.h"

#include <optional>
#include <string>

namespace tessivo {

/// The headphone-jack test. `detected` never goes back within a session.
struct HeadphoneTest {
    bool detected = false;
    std::optional<std::string> jackName;
    ManualAnswer left = ManualAnswer::unanswered;
    ManualAnswer right = ManualAnswer::unanswered;

    bool operator==(const HeadphoneTest&) const = default;
};
BOOST_DESCRIBE_STRUCT(HeadphoneTest, (), (detected, jackName, left, right))

} // namespace tessivo

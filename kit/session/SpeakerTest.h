#pragma once

#include "kit/vocabulary/ManualAnswer.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tessivo {

/// Below 2 channels the test has one tone and `both` counts; from 2 upward `left` and `right` count.
struct SpeakerTest {
    std::int64_t channels = 2;
    std::optional<std::string> outputName;
    ManualAnswer left = ManualAnswer::unanswered;
    ManualAnswer right = ManualAnswer::unanswered;
    ManualAnswer both = ManualAnswer::unanswered;

    bool operator==(const SpeakerTest&) const = default;
};
BOOST_DESCRIBE_STRUCT(SpeakerTest, (), (channels, outputName, left, right, both))

} // namespace tessivo

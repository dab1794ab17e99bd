#pragma once

#include "kit/vocabulary/ManualAnswer.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tessivo {

/// Which colours were shown full screen, and what the person saw.
struct DisplayTest {
    std::set<std::string> shown;
    ManualAnswer answer = ManualAnswer::unanswered;
    std::optional<std::string> screenName;

    /// The six colour names, in showing order.
    static const std::vector<std::string>& colors();
    bool allShown() const;

    bool operator==(const DisplayTest&) const = default;
};
BOOST_DESCRIBE_STRUCT(DisplayTest, (), (shown, answer, screenName))

} // namespace tessivo

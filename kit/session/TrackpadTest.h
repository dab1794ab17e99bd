#pragma once

#include "kit/support/Describe.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace tessivo {

/// The coverage of the surface, 8 columns by 5 rows, and the gestures seen.
struct TrackpadTest {
    static constexpr std::int64_t columns = 8;
    static constexpr std::int64_t rows = 5;

    struct Step {
        std::string name;
        bool met = false;
    };

    std::set<std::int64_t> touched; ///< cell numbers: column + row * 8
    std::int64_t maxFingers = 0;
    bool clicked = false;
    bool secondaryClicked = false;
    bool forceClicked = false;
    bool scrolled = false;
    bool zoomed = false;

    /// Both axes from 0 to 1; anything beyond is clamped, a position that isn't a number is passed over.
    void touch(double x, double y);
    bool isTouched(std::int64_t column, std::int64_t row) const;
    void noteFingers(std::int64_t count);
    double coverage() const;
    bool started() const;
    /// The four checks that decide the test.
    std::vector<Step> steps() const;

    bool operator==(const TrackpadTest&) const = default;
};
BOOST_DESCRIBE_STRUCT(TrackpadTest, (),
                      (touched, maxFingers, clicked, secondaryClicked, forceClicked, scrolled, zoomed))

} // namespace tessivo

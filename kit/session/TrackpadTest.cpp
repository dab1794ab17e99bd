#include "kit/session/TrackpadTest.h"

#include <algorithm>
#include <cmath>

namespace tessivo {
namespace {

constexpr double wholeSurface = 0.9;

/// Clamped before the cut to a whole number, so that no position is too large for one.
std::int64_t cell(double position, std::int64_t count) {
    return static_cast<std::int64_t>(
        std::clamp(position * static_cast<double>(count), 0.0, static_cast<double>(count - 1)));
}

} // namespace

void TrackpadTest::touch(double x, double y) {
    if (std::isnan(x) || std::isnan(y)) return;
    touched.insert(cell(x, columns) + cell(y, rows) * columns);
}

bool TrackpadTest::isTouched(std::int64_t column, std::int64_t row) const {
    return touched.contains(column + row * columns);
}

void TrackpadTest::noteFingers(std::int64_t count) {
    maxFingers = std::max(maxFingers, count);
}

double TrackpadTest::coverage() const {
    return static_cast<double>(touched.size()) / static_cast<double>(columns * rows);
}

bool TrackpadTest::started() const {
    return !touched.empty() || clicked || secondaryClicked || scrolled || zoomed;
}

std::vector<TrackpadTest::Step> TrackpadTest::steps() const {
    return {{"Whole surface", coverage() >= wholeSurface},
            {"Click", clicked},
            {"Secondary click", secondaryClicked},
            {"Two-finger scroll", scrolled}};
}

} // namespace tessivo

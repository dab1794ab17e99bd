#include "app/controls/StatusColors.h"
#include <algorithm>

namespace tessivo {
namespace {

struct Colors {
    Tint tint;
    ColorRole words, glyph;
};

constexpr Colors rows[] = {
    {Tint::secondary, ColorRole::gray, ColorRole::grayGlyph},
    {Tint::blue, ColorRole::blue, ColorRole::blueGlyph},
    {Tint::green, ColorRole::green, ColorRole::greenGlyph},
    {Tint::red, ColorRole::red, ColorRole::redGlyph},
    {Tint::orange, ColorRole::orange, ColorRole::orangeGlyph},
};

const Colors& colorsOf(TestStatus status) {
    return *std::ranges::find(rows, tint(status), &Colors::tint);
}

} // namespace

ColorRole wordColor(TestStatus status) {
    return colorsOf(status).words;
}

ColorRole glyphColor(TestStatus status) {
    return colorsOf(status).glyph;
}

} // namespace tessivo

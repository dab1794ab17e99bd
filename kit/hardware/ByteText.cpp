#include "kit/hardware/ByteText.h"

#include "kit/support/Text.h"

#include <cmath>

namespace tessivo::ByteText {

std::string number(double value) {
    const bool isNearWhole = std::abs(value - std::round(value)) < 0.05;
    return value >= 100 || isNearWhole ? Text::whole(value) : Text::tenths(value);
}

std::string sizeLabel(std::int64_t size) {
    if (size < 1024) return std::to_string(size) + " GB";
    if (size % 1024 == 0) return std::to_string(size / 1024) + " TB";
    return number(double(size) / 1024) + " TB";
}

std::string bytes(std::int64_t count, bool binary) {
    const double value = binary ? std::ldexp(double(count), -30) : double(count) / 1e9;
    if (!binary && value >= 1000) return number(value / 1000) + " TB";
    return number(value) + " GB";
}

} // namespace tessivo::ByteText

#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <unicode/utf8.h>

/// Walking UTF-8 by code points; an invalid sequence counts as U+FFFD. A sequence is at most four bytes, so a
/// short window serves texts of any length. For the .cpp files of the kit alone.
namespace tessivo::CodePoints {

/// The code point at `at`, which moves behind it.
inline UChar32 next(std::string_view text, std::size_t& at) {
    const auto byte = std::uint8_t(text[at]);
    if (byte < 0x80) {
        ++at;
        return byte;
    }
    const auto* window = reinterpret_cast<const std::uint8_t*>(text.data()) + at;
    const auto length = std::int32_t(std::min<std::size_t>(text.size() - at, 4));
    std::int32_t used = 0;
    UChar32 point;
    U8_NEXT_OR_FFFD(window, used, length, point);
    at += std::size_t(used);
    return point;
}

/// The code point before `at`, which moves in front of it.
inline UChar32 previous(std::string_view text, std::size_t& at) {
    const std::size_t start = at > 4 ? at - 4 : 0;
    const auto* window = reinterpret_cast<const std::uint8_t*>(text.data()) + start;
    auto place = std::int32_t(at - start);
    UChar32 point;
    U8_PREV_OR_FFFD(window, 0, place, point);
    at = start + std::size_t(place);
    return point;
}

} // namespace tessivo::CodePoints

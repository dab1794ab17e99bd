#include "kit/listing/Numbers.h"

#include <algorithm>
#include <cstdint>
#include <set>
#include <unicode/uchar.h>
#include <unicode/utf8.h>

namespace tessivo::Numbers {

namespace {

/// Behind the run of decimal digits, of any script, that begins at `at`; `at` itself where none does.
std::size_t behindDigits(std::string_view text, std::size_t at) {
    while (at < text.size()) {
        // A code point is at most four bytes, so a short window serves texts of any length.
        const auto* window = reinterpret_cast<const std::uint8_t*>(text.data()) + at;
        const auto length = std::int32_t(std::min<std::size_t>(text.size() - at, 4));
        std::int32_t used = 0;
        UChar32 point;
        U8_NEXT(window, used, length, point);
        if (point < 0 || u_charType(point) != U_DECIMAL_DIGIT_NUMBER) break;
        at += std::size_t(used);
    }
    return at;
}

} // namespace

std::vector<std::string> find(std::string_view text) {
    std::set<std::string> tokens;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = behindDigits(text, at);
        if (end == at) {
            do // on to the next code point
                ++at;
            while (at < text.size() && U8_IS_TRAIL(text[at]));
            continue;
        }
        while (end < text.size() && (text[end] == '.' || text[end] == ',')) {
            const std::size_t further = behindDigits(text, end + 1);
            if (further == end + 1) break;
            end = further;
        }
        tokens.emplace(text.substr(at, end - at));
        at = end;
    }
    return {tokens.begin(), tokens.end()};
}

} // namespace tessivo::Numbers

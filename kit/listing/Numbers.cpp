#include "kit/listing/Numbers.h"

#include "kit/support/CodePoints.h"

#include <set>
#include <unicode/uchar.h>

namespace tessivo::Numbers {

namespace {

bool isDigit(UChar32 point) {
    return point < 0x80 ? point >= '0' && point <= '9' : u_charType(point) == U_DECIMAL_DIGIT_NUMBER;
}

/// Behind the run of decimal digits, of any script, that begins at `at`; `at` itself where none does.
std::size_t behindDigits(std::string_view text, std::size_t at) {
    for (std::size_t behind = at; at < text.size(); at = behind)
        if (!isDigit(CodePoints::next(text, behind))) break;
    return at;
}

} // namespace

std::vector<std::string> find(std::string_view text) {
    std::set<std::string> tokens;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = behindDigits(text, at);
        if (end == at) {
            CodePoints::next(text, at);
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

#include "kit/support/Text.h"

#include "kit/support/CodePoints.h"
#include "kit/support/UserLocale.h"

#include <boost/algorithm/string/join.hpp>
#include <boost/algorithm/string/replace.hpp>
#include <charconv>
#include <cmath>
#include <memory>
#include <simdjson.h>
#include <unicode/brkiter.h>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/numberformatter.h>
#include <unicode/uchar.h>
#include <unicode/utext.h>

namespace tessivo::Text {

namespace {

using CodePoints::next, CodePoints::previous;

constexpr UChar32 replacement = 0xFFFD;

bool isASCII(char letter) {
    return (letter & 0x80) == 0;
}

bool isLineBreak(UChar32 point) {
    return (point >= 0x0A && point <= 0x0D) || point == 0x85 || point == 0x2028 || point == 0x2029;
}

bool isWhiteSpace(UChar32 point) {
    return point < 0x80 ? point == ' ' || (point >= '\t' && point <= '\r') : bool(u_isUWhiteSpace(point));
}

bool isLetterOrNumber(UChar32 point) {
    return (U_GET_GC_MASK(point) & (U_GC_L_MASK | U_GC_N_MASK)) != 0;
}

template <class Drop>
std::string trimmedWhere(std::string_view text, Drop drop) {
    std::size_t begin = 0;
    while (begin < text.size()) {
        std::size_t behind = begin;
        if (!drop(next(text, behind))) break;
        begin = behind;
    }
    std::size_t end = text.size();
    while (end > begin) {
        std::size_t before = end;
        if (!drop(previous(text, before))) break;
        end = before;
    }
    return std::string(text.substr(begin, end - begin));
}

/// Uses each piece between the separators that isn't empty.
template <class Separates, class Use>
void forEachPiece(std::string_view text, Separates separates, Use use) {
    std::size_t begin = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t here = at;
        if (!separates(next(text, at))) continue;
        if (here > begin) use(text.substr(begin, here - begin));
        begin = at;
    }
    if (begin < text.size()) use(text.substr(begin));
}

enum class CaseForm { lower, upper };

std::string cased(std::string_view text, CaseForm form) {
    std::string result;
    if (std::ranges::all_of(text, isASCII)) {
        result.assign(text);
        const char first = form == CaseForm::lower ? 'A' : 'a';
        for (char& letter : result)
            if (std::uint8_t(letter - first) < 26) letter ^= 0x20;
        return result;
    }
    if (!simdjson::validate_utf8(text)) return cased(repaired(text), form);
    icu::StringByteSink<std::string> sink(&result, std::int32_t(text.size()));
    const icu::StringPiece piece(text.data(), std::int32_t(text.size()));
    UErrorCode status = U_ZERO_ERROR;
    if (form == CaseForm::lower)
        icu::CaseMap::utf8ToLower("", 0, piece, sink, nullptr, status);
    else
        icu::CaseMap::utf8ToUpper("", 0, piece, sink, nullptr, status);
    return U_SUCCESS(status) ? result : std::string(text);
}

/// The boundaries between user-perceived characters. Making the iterator is dear, so each thread keeps one.
class Characters {
public:
    explicit Characters(std::string_view text) {
        UErrorCode status = U_ZERO_ERROR;
        utext_openUTF8(&m_text, text.data(), std::int64_t(text.size()), &status);
        iterator->setText(&m_text, status);
    }
    ~Characters() { utext_close(&m_text); }
    Characters(const Characters&) = delete;
    Characters& operator=(const Characters&) = delete;

    icu::BreakIterator* operator->() const { return iterator.get(); }

private:
    static thread_local const std::unique_ptr<icu::BreakIterator> iterator;
    UText m_text = UTEXT_INITIALIZER;
};

thread_local const std::unique_ptr<icu::BreakIterator> Characters::iterator = [] {
    UErrorCode status = U_ZERO_ERROR;
    return std::unique_ptr<icu::BreakIterator>(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
}();

/// There is a boundary between any two ASCII letters, except in CRLF.
bool isASCIIBoundary(std::string_view text, std::size_t at) {
    const char before = text[at - 1], after = text[at];
    return isASCII(before) && isASCII(after) && !(before == '\r' && after == '\n');
}

/// Marks and joiners belong to the character before them, or to that behind them.
bool belongsToANeighbour(UChar32 point) {
    switch (u_getIntPropertyValue(point, UCHAR_GRAPHEME_CLUSTER_BREAK)) {
    case U_GCB_PREPEND:
    case U_GCB_EXTEND:
    case U_GCB_SPACING_MARK:
    case U_GCB_ZWJ:
        return true;
    default:
        return false;
    }
}

/// Whether the first code point from `at` on that is no mark is a letter or a number.
bool isLetterOrNumberAt(std::string_view text, std::size_t at) {
    while (at < text.size()) {
        const UChar32 point = next(text, at);
        if (!belongsToANeighbour(point)) return isLetterOrNumber(point);
    }
    return false;
}

std::string fixed(double value, int decimals) {
    char buffer[400]; // the largest double has 309 digits before its point
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, decimals);
    return std::string(buffer, end.ptr);
}

} // namespace

std::string lowercased(std::string_view text) {
    return cased(text, CaseForm::lower);
}
std::string uppercased(std::string_view text) {
    return cased(text, CaseForm::upper);
}

std::string trimmed(std::string_view text) {
    return trimmedWhere(text, isWhiteSpace);
}

std::string trimmedBlanks(std::string_view text) {
    return trimmedWhere(text, [](UChar32 point) { return point == ' ' || point == '\t'; });
}

std::string repaired(std::string_view bytes) {
    if (simdjson::validate_utf8(bytes.data(), bytes.size())) return std::string(bytes);
    std::string result;
    result.reserve(bytes.size() + 16);
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t here = at;
        // A real U+FFFD in the bytes is copied as itself either way.
        if (next(bytes, at) == replacement)
            result += "\xEF\xBF\xBD";
        else
            result.append(bytes, here, at - here);
    }
    return result;
}

std::vector<std::string> lines(std::string_view text) {
    std::vector<std::string> found;
    forEachPiece(text, isLineBreak, [&](std::string_view line) { found.emplace_back(line); });
    return found;
}

std::string collapsed(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    forEachPiece(text, isWhiteSpace, [&](std::string_view word) {
        if (!result.empty()) result += ' ';
        result += word;
    });
    return result;
}

std::size_t characterCount(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = 0, end; at < text.size(); at = end) {
        for (end = at + 1; end < text.size() && !isASCIIBoundary(text, end);)
            ++end;
        // Only what isn't ASCII, with its neighbours, takes more than a look.
        if (std::all_of(text.begin() + at, text.begin() + end, isASCII)) {
            ++count;
        } else {
            const Characters characters(text.substr(at, end - at));
            while (characters->next() != icu::BreakIterator::DONE)
                ++count;
        }
    }
    return count;
}

bool isBoundary(std::string_view text, std::size_t at) {
    if (at == 0 || at >= text.size() || isASCIIBoundary(text, at)) return true;
    return Characters(text)->isBoundary(std::int32_t(at));
}

bool endsWithLetterOrNumber(std::string_view before) {
    if (before.empty()) return false;
    if (isASCII(before.back())) return isLetterOrNumber(before.back());
    // A character of more than a few hundred bytes is nobody's letter; the window keeps this cheap.
    std::size_t start = before.size() > 1024 ? before.size() - 1024 : 0;
    while (start > 0 && U8_IS_TRAIL(before[start]))
        --start;
    const std::string_view window = before.substr(start);
    const auto at = Characters(window)->preceding(std::int32_t(window.size()));
    return isLetterOrNumberAt(window, at == icu::BreakIterator::DONE ? 0 : std::size_t(at));
}

bool beginsWithLetterOrNumber(std::string_view after) {
    return isLetterOrNumberAt(after, 0);
}

std::string replaced(std::string_view text, std::string_view what, std::string_view with) {
    std::string result(text);
    // Most texts don't hold it, and the library's search is a slow one.
    if (result.find(what) != std::string::npos) boost::algorithm::replace_all(result, what, with);
    return result;
}

std::string joined(const std::vector<std::string>& pieces, std::string_view separator) {
    return boost::algorithm::join(pieces, separator);
}

std::string grouped(std::int64_t number) {
    static thread_local const auto format =
        icu::number::NumberFormatter::withLocale(userLocale("LC_NUMERIC"));
    UErrorCode status = U_ZERO_ERROR;
    std::string bytes;
    format.formatInt(number, status).toString(status).toUTF8String(bytes);
    return U_SUCCESS(status) ? bytes : std::to_string(number);
}

std::string whole(double value) {
    const double rounded = std::round(value);
    return fixed(rounded == 0 ? 0.0 : rounded, 0); // no "-0"
}

std::string tenths(double value) {
    return fixed(value, 1);
}

std::string singleLine(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t here = at;
        const UChar32 point = next(text, at);
        if (u_charType(point) == U_CONTROL_CHAR || isLineBreak(point))
            result += ' ';
        else
            result.append(text, here, at - here);
    }
    return result;
}

} // namespace tessivo::Text

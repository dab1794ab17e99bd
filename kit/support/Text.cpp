#include "kit/support/Text.h"

#include "kit/support/UserLocale.h"

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
#include <unicode/utf8.h>

namespace tessivo::Text {

namespace {

constexpr UChar32 replacement = 0xFFFD;

bool isASCII(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char letter) { return (letter & 0x80) == 0; });
}

/// The code point at `at`, which moves behind it; U+FFFD for an invalid sequence.
UChar32 next(std::string_view text, std::size_t& at) {
    const auto byte = std::uint8_t(text[at]);
    if (byte < 0x80) {
        ++at;
        return byte;
    }
    // A sequence is at most four bytes, so a short window serves texts of any length.
    const auto* window = reinterpret_cast<const std::uint8_t*>(text.data()) + at;
    const auto length = std::int32_t(std::min<std::size_t>(text.size() - at, 4));
    std::int32_t used = 0;
    UChar32 point;
    U8_NEXT_OR_FFFD(window, used, length, point);
    at += std::size_t(used);
    return point;
}

/// The code point before `at`, which moves in front of it.
UChar32 previous(std::string_view text, std::size_t& at) {
    const std::size_t start = at > 4 ? at - 4 : 0;
    const auto* window = reinterpret_cast<const std::uint8_t*>(text.data()) + start;
    auto place = std::int32_t(at - start);
    UChar32 point;
    U8_PREV_OR_FFFD(window, 0, place, point);
    at = start + std::size_t(place);
    return point;
}

bool isLineBreak(UChar32 point) {
    return (point >= 0x0A && point <= 0x0D) || point == 0x85 || point == 0x2028 || point == 0x2029;
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

template <class Separates>
std::vector<std::string> pieces(std::string_view text, Separates separates) {
    std::vector<std::string> found;
    std::size_t begin = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t here = at;
        if (!separates(next(text, at))) continue;
        if (here > begin) found.emplace_back(text.substr(begin, here - begin));
        begin = at;
    }
    if (begin < text.size()) found.emplace_back(text.substr(begin));
    return found;
}

enum class CaseForm { lower, upper };

std::string cased(std::string_view text, CaseForm form) {
    std::string result;
    if (isASCII(text)) {
        result.assign(text);
        for (char& letter : result) {
            if (form == CaseForm::lower ? letter >= 'A' && letter <= 'Z' : letter >= 'a' && letter <= 'z')
                letter ^= 0x20;
        }
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

/// Walks user-perceived characters. Making the iterator is dear, so each thread keeps one.
class Characters {
public:
    explicit Characters(std::string_view text) {
        UErrorCode status = U_ZERO_ERROR;
        utext_openUTF8(&m_text, text.data(), std::int64_t(text.size()), &status);
        iterator().setText(&m_text, status);
    }
    ~Characters() { utext_close(&m_text); }
    Characters(const Characters&) = delete;
    Characters& operator=(const Characters&) = delete;

    static icu::BreakIterator& iterator() {
        static thread_local const std::unique_ptr<icu::BreakIterator> shared = [] {
            UErrorCode status = U_ZERO_ERROR;
            return std::unique_ptr<icu::BreakIterator>(
                icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
        }();
        return *shared;
    }

private:
    UText m_text = UTEXT_INITIALIZER;
};

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
    return trimmedWhere(text, [](UChar32 point) { return bool(u_isUWhiteSpace(point)); });
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
    return pieces(text, isLineBreak);
}

std::vector<std::string> words(std::string_view text) {
    return pieces(text, [](UChar32 point) { return bool(u_isUWhiteSpace(point)); });
}

std::size_t characterCount(std::string_view text) {
    std::size_t count = 0;
    if (isASCII(text)) {
        for (std::size_t i = 0; i < text.size(); ++i)
            count += !(text[i] == '\n' && i > 0 && text[i - 1] == '\r');
        return count;
    }
    const Characters characters(text);
    for (auto& iterator = Characters::iterator(); iterator.next() != icu::BreakIterator::DONE;)
        ++count;
    return count;
}

bool endsWithLetterOrNumber(std::string_view before) {
    if (before.empty()) return false;
    if (isASCII(before.substr(before.size() - 1))) return isLetterOrNumber(before.back());
    // A character of more than a few hundred bytes is nobody's letter; the window keeps this cheap.
    std::size_t start = before.size() > 1024 ? before.size() - 1024 : 0;
    while (start > 0 && U8_IS_TRAIL(before[start]))
        --start;
    const std::string_view window = before.substr(start);
    const Characters characters(window);
    const auto at = Characters::iterator().preceding(std::int32_t(window.size()));
    return isLetterOrNumberAt(window, at == icu::BreakIterator::DONE ? 0 : std::size_t(at));
}

bool beginsWithLetterOrNumber(std::string_view after) {
    return isLetterOrNumberAt(after, 0);
}

std::string replaced(std::string_view text, std::string_view what, std::string_view with) {
    if (what.empty()) return std::string(text);
    std::string result;
    std::size_t from = 0;
    for (std::size_t at; (at = text.find(what, from)) != std::string_view::npos; from = at + what.size()) {
        result.append(text, from, at - from);
        result.append(with);
    }
    result.append(text, from);
    return result;
}

std::string joined(const std::vector<std::string>& pieces, std::string_view separator) {
    std::string result;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (i > 0) result.append(separator);
        result.append(pieces[i]);
    }
    return result;
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

#include "kit/listing/CharacterText.h"

#include "kit/support/CodePoints.h"
#include "kit/support/Text.h"

#include <algorithm>
#include <optional>
#include <unicode/bytestream.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>

namespace tessivo {

namespace {

bool isASCII(char letter) {
    return (letter & 0x80) == 0;
}

/// The valid text in a normal form, or as it is where there is no such form to be had.
std::string normalized(const std::string& valid, const icu::Normalizer2* form, UErrorCode status) {
    std::string result;
    if (U_SUCCESS(status)) {
        const auto length = std::int32_t(valid.size());
        icu::StringByteSink<std::string> sink(&result, length);
        form->normalizeUTF8(0, icu::StringPiece(valid.data(), length), sink, nullptr, status);
    }
    return U_SUCCESS(status) ? result : valid;
}

/// How letters stand with their marks: as one code point where there is one, or each mark behind its letter.
enum class Marks { joined, apart };

/// One byte sequence for all canonically equivalent texts.
std::string canonical(std::string_view text, Marks marks) {
    if (std::all_of(text.begin(), text.end(), isASCII)) return std::string(text);
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* form = marks == Marks::joined ? icu::Normalizer2::getNFCInstance(status)
                                                          : icu::Normalizer2::getNFDInstance(status);
    // Lower-casing gives a sigma the form that its place in a word asks for, so a word that a rewording
    // lengthens would differ from the same word alone.
    return Text::replaced(normalized(Text::repaired(text), form, status), "ς", "σ");
}

/// Without control characters, which have no width; those that are white space do, and stay.
std::string withoutControls(std::string_view text) {
    std::string seen;
    std::size_t from = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t here = at;
        const UChar32 point = CodePoints::next(text, at);
        if (point >= ' ' && point < 0x7F) continue;
        if (u_charType(point) != U_CONTROL_CHAR || u_isUWhiteSpace(point)) continue;
        seen.append(text, from, here - from);
        from = at;
    }
    return seen.append(text, from);
}

/// Goes behind the code point; U_SENTINEL, which is no mark, at the text's end.
UChar32 pointAt(std::string_view text, std::size_t& at) {
    return at < text.size() ? CodePoints::next(text, at) : U_SENTINEL;
}

/// The place behind the phrase where it begins at `at`. Both have each mark behind its letter; the letters
/// may carry more marks in the text than in the phrase, in whatever order marks come to stand.
std::optional<std::size_t> behindPhrase(std::string_view text, std::size_t at, std::string_view phrase) {
    for (std::size_t wanted = 0; wanted < phrase.size();) {
        const UChar32 point = pointAt(phrase, wanted);
        UChar32 found = pointAt(text, at);
        while (found != point && (U_GET_GC_MASK(found) & U_GC_M_MASK))
            found = pointAt(text, at);
        if (found != point) return std::nullopt;
    }
    return at;
}

bool isPlainLetterOrDigit(char letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
           (letter >= '0' && letter <= '9');
}

} // namespace

CharacterText::CharacterText(std::string_view text)
    : m_text(canonical(text, Marks::joined)), m_letters(canonical(text, Marks::apart)) {
    for (std::size_t at = 0; at < m_letters.size(); ++at)
        if (at == 0 || !isPlainLetterOrDigit(m_letters[at - 1])) m_starts.push_back(at);
}

bool CharacterText::keeps(std::string_view phrase) const {
    const std::string wanted = canonical(phrase, Marks::joined);
    for (std::size_t at = 0; (at = m_text.find(wanted, at)) != std::string::npos; ++at)
        if (isBoundary(at) && isBoundary(at + wanted.size())) return true;
    return false;
}

bool CharacterText::says(std::string_view phrase) const {
    const std::string unwanted = canonical(phrase, Marks::apart);
    for (std::size_t at = 0; (at = m_letters.find(unwanted.front(), at)) != std::string::npos; ++at)
        if (behindPhrase(m_letters, at, unwanted)) return true;
    return false;
}

bool CharacterText::saysWord(std::string_view phrase) const {
    const std::string unwanted = canonical(phrase, Marks::apart);
    const std::string_view text = m_letters;
    for (const std::size_t at : m_starts) {
        if (text[at] != unwanted.front()) continue;
        const auto behind = behindPhrase(text, at, unwanted);
        if (behind && !Text::endsWithLetterOrNumber(text.substr(0, at)) &&
            !Text::beginsWithLetterOrNumber(text.substr(*behind)))
            return true;
    }
    return false;
}

std::string CharacterText::inPlainLetters(std::string_view text) {
    const std::string seen = withoutControls(text);
    if (std::all_of(seen.begin(), seen.end(), isASCII)) return seen;
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* form = icu::Normalizer2::getNFKCCasefoldInstance(status);
    return normalized(Text::repaired(seen), form, status);
}

bool CharacterText::isBoundary(std::size_t at) const {
    if (at == 0 || at == m_text.size()) return true;
    // A blank bounds even a phrase that begins with a combining mark: the mark would else belong to the
    // blank, and the phrase couldn't be found in the very text it was taken from.
    return m_text[at - 1] == ' ' || m_text[at] == ' ' || Text::isBoundary(m_text, at);
}

} // namespace tessivo

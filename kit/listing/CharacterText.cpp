#include "kit/listing/CharacterText.h"

#include "kit/support/Text.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <unicode/brkiter.h>
#include <unicode/bytestream.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

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
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto byte = std::uint8_t(text[at]);
        const auto behind = std::uint8_t(at + 1 < text.size() ? text[at + 1] : 0);
        const bool isWhiteSpace = byte >= '\t' && byte <= '\r';
        if ((byte < 0x20 && !isWhiteSpace) || byte == 0x7F) continue;
        if (byte == 0xC2 && behind >= 0x80 && behind <= 0x9F && behind != 0x85)
            ++at; // a control character of two bytes; U+0085 is white space
        else
            seen += text[at];
    }
    return seen;
}

/// Looks for a phrase whose letters may carry more marks in the text than its own, in whatever order marks
/// come to stand. Both have each mark behind its letter.
class Search {
public:
    struct Hit {
        std::size_t begin, end;
    };

    Search(std::string_view text, std::string_view phrase) : m_text(text), m_phrase(phrase) {}

    /// The next hit behind the last one.
    std::optional<Hit> next() {
        while ((m_at = m_text.find(m_phrase.front(), m_at)) != std::string_view::npos) {
            const std::size_t begin = m_at++;
            if (const auto end = endFrom(begin)) return Hit{begin, m_at = *end};
        }
        m_at = m_text.size();
        return std::nullopt;
    }

private:
    std::optional<std::size_t> endFrom(std::size_t at) const {
        for (std::size_t wanted = 0; wanted < m_phrase.size();) {
            const UChar32 point = pointAt(m_phrase, wanted);
            UChar32 found = pointAt(m_text, at);
            while (found != point && (U_GET_GC_MASK(found) & U_GC_M_MASK))
                found = pointAt(m_text, at);
            if (found != point) return std::nullopt;
        }
        return at;
    }

    /// Goes behind it; U_SENTINEL, which is no mark, at the text's end.
    static UChar32 pointAt(std::string_view text, std::size_t& at) {
        if (at >= text.size()) return U_SENTINEL;
        UChar32 point = U_SENTINEL;
        U8_NEXT(text.data(), at, text.size(), point);
        return point;
    }

    std::string_view m_text, m_phrase;
    std::size_t m_at = 0;
};

icu::BreakIterator* characterIterator() {
    static thread_local const std::unique_ptr<icu::BreakIterator> iterator = [] {
        UErrorCode status = U_ZERO_ERROR;
        return std::unique_ptr<icu::BreakIterator>(
            icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    }();
    return iterator.get();
}

} // namespace

CharacterText::CharacterText(std::string_view text)
    : m_text(canonical(text, Marks::joined)), m_letters(canonical(text, Marks::apart)) {}

bool CharacterText::keeps(std::string_view phrase) const {
    const std::string wanted = canonical(phrase, Marks::joined);
    for (std::size_t at = 0; (at = m_text.find(wanted, at)) != std::string::npos; ++at)
        if (isBoundary(at) && isBoundary(at + wanted.size())) return true;
    return false;
}

bool CharacterText::says(std::string_view phrase) const {
    return Search(m_letters, canonical(phrase, Marks::apart)).next().has_value();
}

bool CharacterText::saysWord(std::string_view phrase) const {
    const std::string unwanted = canonical(phrase, Marks::apart);
    const std::string_view text = m_letters;
    Search search(text, unwanted);
    while (const auto hit = search.next())
        if (!Text::endsWithLetterOrNumber(text.substr(0, hit->begin)) &&
            !Text::beginsWithLetterOrNumber(text.substr(hit->end)))
            return true;
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
    const char before = m_text[at - 1], after = m_text[at];
    // A blank bounds even a phrase that begins with a combining mark: the mark would else belong to the
    // blank, and the phrase couldn't be found in the very text it was taken from.
    if (before == ' ' || after == ' ') return true;
    if (isASCII(before) && isASCII(after)) return !(before == '\r' && after == '\n');
    icu::BreakIterator* const iterator = characterIterator();
    if (!iterator) return true;
    UErrorCode status = U_ZERO_ERROR;
    UText view = UTEXT_INITIALIZER;
    utext_openUTF8(&view, m_text.data(), std::int64_t(m_text.size()), &status);
    iterator->setText(&view, status);
    const bool boundary = U_FAILURE(status) || iterator->isBoundary(std::int32_t(at));
    utext_close(&view);
    return boundary;
}

} // namespace tessivo

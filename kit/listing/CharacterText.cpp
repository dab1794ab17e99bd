#include "kit/listing/CharacterText.h"

#include "kit/support/Text.h"

#include <algorithm>
#include <memory>
#include <unicode/brkiter.h>
#include <unicode/bytestream.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/utext.h>

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
    return m_letters.find(canonical(phrase, Marks::apart)) != std::string::npos;
}

bool CharacterText::saysWord(std::string_view phrase) const {
    const std::string unwanted = canonical(phrase, Marks::apart);
    const std::string_view text = m_letters;
    for (std::size_t at = 0; (at = text.find(unwanted, at)) != std::string::npos; at += unwanted.size())
        if (!Text::endsWithLetterOrNumber(text.substr(0, at)) &&
            !Text::beginsWithLetterOrNumber(text.substr(at + unwanted.size())))
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

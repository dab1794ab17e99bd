#include "kit/support/JsonWriter.h"

#include "kit/support/Text.h"

#include <charconv>
#include <cmath>
#include <simdjson.h>

namespace tessivo::Json {

namespace {

constexpr std::string_view hexDigits = "0123456789abcdef";

template <class Number, class... Form>
void append(std::string& out, Number number, Form... form) {
    char buffer[40];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, number, form...);
    out.append(buffer, end.ptr);
}

bool needsEscape(char letter) {
    return (std::uint8_t(letter) < 0x20) | (letter == '"') | (letter == '\\');
}

/// The place of the first letter from `at` on that needs an escape, or the end.
std::size_t nextEscape(std::string_view text, std::size_t at) {
    constexpr std::size_t block =
        16; // without a branch for each letter, so that the compiler takes all at once
    for (; at + block <= text.size(); at += block) {
        std::uint8_t found = 0;
        for (std::size_t i = 0; i < block; ++i)
            found |= std::uint8_t(needsEscape(text[at + i]));
        if (found) break;
    }
    while (at < text.size() && !needsEscape(text[at]))
        ++at;
    return at;
}

void appendEscape(std::string& out, char letter) {
    switch (letter) {
    case '"':
    case '\\':
        (out += '\\') += letter;
        break;
    case '\n':
        out += "\\n";
        break;
    case '\r':
        out += "\\r";
        break;
    case '\t':
        out += "\\t";
        break;
    default:
        out += "\\u00";
        out += hexDigits[std::uint8_t(letter) >> 4];
        out += hexDigits[std::uint8_t(letter) & 0x0F];
    }
}

} // namespace

void Writer::write(double number) {
    if (!std::isfinite(number)) throw std::invalid_argument("a number that isn't finite can't be written");
    if (number == 0) {
        m_out += std::signbit(number) ? "-0.0" : "0";
    } else if (std::abs(number) >= 1e15) {
        // Digits alone would be read as a whole number, and there is none of this size.
        append(m_out, number, std::chars_format::scientific);
    } else {
        append(m_out, number);
    }
}

void Writer::writeFraction(double number) {
    const std::size_t from = m_out.size();
    write(number);
    if (m_out.find_first_of(".e", from) == std::string::npos) m_out += ".0";
}

void Writer::write(std::string_view text) {
    m_out += '"';
    std::size_t from = 0;
    for (std::size_t at; (at = nextEscape(text, from)) < text.size(); from = at + 1) {
        m_out.append(text, from, at - from);
        appendEscape(m_out, text[at]);
    }
    m_out.append(text, from);
    m_out += '"';
}

void Writer::write(Date date) {
    if (m_form == DateForm::number) return write(date.seconds);
    const std::string text = date.iso8601();
    if (text.empty()) throw std::invalid_argument("a date outside the years 0 to 9999 can't be written");
    write(std::string_view(text));
}

void Writer::open(char bracket) {
    m_out += bracket;
    if (!m_line.empty()) m_line += "  ";
    m_isFirst = true;
}

void Writer::writeKey(std::string_view key) {
    separate();
    write(key);
    m_out += m_layout == Layout::prettySorted ? ": " : ":";
}

void Writer::writeName(std::string_view name) {
    separate();
    ((m_out += '"') += name) += '"';
    m_out += m_layout == Layout::prettySorted ? ": " : ":";
}

void Writer::separate() {
    if (!m_isFirst) m_out += ',';
    m_isFirst = false;
    m_out += m_line;
}

void Writer::close(char bracket) {
    if (!m_line.empty()) m_line.resize(m_line.size() - 2);
    if (!m_isFirst) m_out += m_line;
    m_out += bracket;
    m_isFirst = false;
}

std::string Writer::take() {
    // Texts stand between ASCII letters, so that none's broken end can join what follows.
    if (!simdjson::validate_utf8(m_out)) m_out = Text::repaired(m_out);
    return std::move(m_out);
}

void Writer::writeSigned(std::int64_t number) {
    append(m_out, number);
}
void Writer::writeUnsigned(std::uint64_t number) {
    append(m_out, number);
}

} // namespace tessivo::Json

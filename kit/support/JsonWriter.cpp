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
    return std::uint8_t(letter) < 0x20 || letter == '"' || letter == '\\';
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
    if (simdjson::validate_utf8(text.data(), text.size()))
        writeValid(text);
    else
        writeValid(Text::repaired(text));
}

void Writer::writeValid(std::string_view text) {
    m_out += '"';
    std::size_t from = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (!needsEscape(text[at])) continue;
        m_out.append(text, from, at - from);
        appendEscape(m_out, text[at]);
        from = at + 1;
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
    ++m_depth;
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
    breakLine();
}

void Writer::close(char bracket) {
    --m_depth;
    if (!m_isFirst) breakLine();
    m_out += bracket;
    m_isFirst = false;
}

void Writer::writeSigned(std::int64_t number) {
    append(m_out, number);
}
void Writer::writeUnsigned(std::uint64_t number) {
    append(m_out, number);
}

void Writer::breakLine() {
    if (m_layout == Layout::compact) return;
    m_out += '\n';
    m_out.append(std::size_t(m_depth) * 2, ' ');
}

} // namespace tessivo::Json

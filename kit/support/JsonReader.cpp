#include "kit/support/JsonReader.h"

#include "kit/support/Text.h"

namespace tessivo::Json {

namespace {

using simdjson::dom::element;
using simdjson::dom::element_type;

/// Beyond this, the parser's buffers are given back after the document.
constexpr std::size_t largestKept = 1 << 20;

/// Doubles up to here name every whole number exactly.
constexpr double largestExact = 9007199254740992.0;

std::string faultText(simdjson::error_code code) {
    switch (code) {
    case simdjson::EMPTY:
        return "isn't JSON: it is empty";
    case simdjson::DEPTH_ERROR:
        return "is nested too deeply";
    case simdjson::UTF8_ERROR:
        return "isn't UTF-8 text";
    case simdjson::NUMBER_ERROR:
        return "isn't JSON: a number is malformed or too large";
    case simdjson::STRING_ERROR:
        return "isn't JSON: a text holds a broken escape";
    case simdjson::UNCLOSED_STRING:
        return "isn't JSON: a text doesn't end";
    case simdjson::UNESCAPED_CHARS:
        return "isn't JSON: a text holds a bare control character";
    case simdjson::CAPACITY:
    case simdjson::MEMALLOC:
        return "is too large";
    default:
        return "isn't JSON";
    }
}

std::string_view withoutByteOrderMark(std::string_view text) {
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    return text;
}

bool isDigit(char letter) {
    return letter >= '0' && letter <= '9';
}

std::size_t digitsFrom(std::string_view token, std::size_t at) {
    while (at < token.size() && isDigit(token[at]))
        ++at;
    return at;
}

/// Whether the token is a number by the grammar of JSON, whatever its size.
bool isWellFormed(std::string_view token) {
    std::size_t at = token.starts_with('-') ? 1 : 0;
    const std::size_t whole = digitsFrom(token, at);
    if (whole == at || (token[at] == '0' && whole > at + 1)) return false;
    at = whole;
    if (at < token.size() && token[at] == '.') {
        const std::size_t end = digitsFrom(token, at + 1);
        if (end == at + 1) return false;
        at = end;
    }
    if (at < token.size() && (token[at] == 'e' || token[at] == 'E')) {
        ++at;
        if (at < token.size() && (token[at] == '+' || token[at] == '-')) ++at;
        const std::size_t end = digitsFrom(token, at);
        if (end == at) return false;
        at = end;
    }
    return at == token.size();
}

/// Stands for a number that the parser can't hold: no member is of this type, so it fails the key that it
/// stands under, and under an unknown key nobody looks at it.
constexpr std::string_view tooLarge = "[[]]";

/// The document with `tooLarge` in the place of each such number.
std::string withoutHugeNumbers(std::string_view text) {
    simdjson::dom::parser parser;
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t begin = at;
        if (text[at] == '"') {
            for (++at; at < text.size() && text[at] != '"'; ++at)
                if (text[at] == '\\') ++at;
            at = std::min(at + 1, text.size());
        } else if (text[at] == '-' || isDigit(text[at])) {
            at = std::min(text.find_first_not_of("0123456789+-.eE", at), text.size());
            const std::string_view token = text.substr(begin, at - begin);
            if (isWellFormed(token) &&
                parser.parse(token.data(), token.size()).error() == simdjson::NUMBER_ERROR) {
                result += tooLarge;
                continue;
            }
        } else {
            ++at;
        }
        result.append(text, begin, at - begin);
    }
    return result;
}

/// One parser for each thread serves all small documents; a reader inside another's work gets its own.
std::unique_ptr<simdjson::dom::parser>& spareParser() {
    static thread_local std::unique_ptr<simdjson::dom::parser> spare;
    return spare;
}

bool isTooLarge(element found) {
    return found.is_array() && simdjson::minify(found) == tooLarge;
}

[[noreturn]] void failType(const Path& path, std::string_view expected, element found) {
    const char* type = "a number";
    switch (found.type()) {
    case element_type::ARRAY:
        if (!isTooLarge(found)) type = "a list";
        break;
    case element_type::OBJECT:
        type = "an object";
        break;
    case element_type::STRING:
        type = "a text";
        break;
    case element_type::BOOL:
        type = "a boolean";
        break;
    case element_type::NULL_VALUE:
        type = "null";
        break;
    default:
        break;
    }
    path.fail(std::string("not ").append(expected).append(" but ").append(type));
}

[[noreturn]] void failNumber(const Path& path, std::string_view expected, element found) {
    if (isTooLarge(found)) path.fail("out of range");
    failType(path, expected, found);
}

/// The whole number that a double stands for, or nothing.
std::optional<std::int64_t> exactWhole(double number) {
    if (!(std::abs(number) <= largestExact) || number != std::trunc(number)) return std::nullopt;
    return std::int64_t(number);
}

} // namespace

std::string Path::text() const {
    if (!m_parent) return {};
    std::string text = m_parent->text();
    if (m_isIndex) return text + '[' + std::to_string(m_index) + ']';
    if (!text.empty()) text += '.';
    return text.append(m_key);
}

Document::Document(std::string_view text, HugeNumbers hugeNumbers)
    : m_parser(spareParser() ? std::move(spareParser()) : std::make_unique<simdjson::dom::parser>()) {
    text = withoutByteOrderMark(text);
    auto error = m_parser->parse(text.data(), text.size()).get(m_root);
    if (error == simdjson::NUMBER_ERROR && hugeNumbers == HugeNumbers::failTheirKey) {
        const std::string bounded = withoutHugeNumbers(text);
        error = m_parser->parse(bounded.data(), bounded.size()).get(m_root);
    }
    if (error) throw DecodingError({}, faultText(error));
}

Document::~Document() {
    if (m_parser && m_parser->capacity() <= largestKept) spareParser() = std::move(m_parser);
}

std::string_view readText(element element, const Path& path) {
    std::string_view text;
    if (element.get(text)) failType(path, "a text", element);
    return text;
}

double readDouble(element element, const Path& path) {
    double number = 0;
    if (element.get(number)) failNumber(path, "a number", element);
    return number;
}

bool readBool(element element, const Path& path) {
    bool flag = false;
    if (element.get(flag)) failType(path, "a boolean", element);
    return flag;
}

std::int64_t readSigned(element element, const Path& path, std::int64_t least, std::int64_t most) {
    std::int64_t number = 0;
    switch (element.type()) {
    case element_type::INT64:
        number = std::int64_t(element);
        break;
    case element_type::UINT64: // only what is beyond the signed range
        path.fail("out of range");
    case element_type::DOUBLE:
        if (const auto whole = exactWhole(double(element)))
            number = *whole;
        else
            path.fail("not a whole number");
        break;
    default:
        failNumber(path, "a whole number", element);
    }
    if (number < least || number > most) path.fail("out of range");
    return number;
}

std::uint64_t readUnsigned(element element, const Path& path, std::uint64_t most) {
    std::uint64_t number = 0;
    if (element.type() == element_type::UINT64) {
        number = std::uint64_t(element);
    } else {
        const std::int64_t whole = readSigned(element, path, std::numeric_limits<std::int64_t>::min(),
                                              std::numeric_limits<std::int64_t>::max());
        if (whole < 0) path.fail("out of range");
        number = std::uint64_t(whole);
    }
    if (number > most) path.fail("out of range");
    return number;
}

Date readDate(element element, const Path& path, DateForm form) {
    if (form == DateForm::number) return Date{readDouble(element, path)};
    const std::string_view text = readText(element, path);
    if (const auto date = Date::fromISO8601(text)) return *date;
    path.fail("not a date: " + quoted(text));
}

Uuid readUuid(element element, const Path& path) {
    const std::string_view text = readText(element, path);
    if (const auto uuid = Uuid::parse(text)) return *uuid;
    path.fail("not a UUID: " + quoted(text));
}

simdjson::dom::array readArray(element element, const Path& path) {
    simdjson::dom::array array;
    if (element.get(array)) failType(path, "a list", element);
    return array;
}

simdjson::dom::object readObject(element element, const Path& path) {
    simdjson::dom::object object;
    if (element.get(object)) failType(path, "an object", element);
    return object;
}

std::string quoted(std::string_view text) {
    constexpr std::size_t longest = 40;
    std::size_t end = std::min(text.size(), longest);
    while (end < text.size() && end > 0 && (text[end] & 0xC0) == 0x80)
        --end;
    return '"' + Text::singleLine(text.substr(0, end)) + (end < text.size() ? "…\"" : "\"");
}

} // namespace tessivo::Json

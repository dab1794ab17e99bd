#include "kit/support/JsonReader.h"

#include "kit/support/Text.h"

namespace tessivo::Json {

namespace {

[[noreturn]] void failType(const Value& value, const Path& path, std::string_view wanted) {
    path.fail(std::string("not ").append(wanted).append(" but ").append(Value::nameOf(value.type)));
}

const Value& expect(Value::Type type, const Value& value, const Path& path, std::string_view wanted) {
    if (value.type != type) failType(value, path, wanted);
    return value;
}

} // namespace

std::string Path::text() const {
    if (!m_parent) return {};
    std::string text = m_parent->text();
    if (m_isIndex) return text + '[' + std::to_string(m_index) + ']';
    if (!text.empty()) text += '.';
    return text.append(m_key);
}

std::string_view readText(const Value& value, const Path& path) {
    return expect(Value::Type::text, value, path, "a text").text;
}

double readDouble(const Value& value, const Path& path) {
    const auto number = Number::toDouble(expect(Value::Type::number, value, path, "a number").text);
    if (!number) path.fail("out of range");
    return *number;
}

bool readBool(const Value& value, const Path& path) {
    return expect(Value::Type::boolean, value, path, "a boolean").text == "true";
}

std::string readDigits(const Value& value, const Path& path) {
    auto digits = Number::wholeDigits(expect(Value::Type::number, value, path, "a whole number").text);
    if (!digits) path.fail("not a whole number");
    return *std::move(digits);
}

Date readDate(const Value& value, const Path& path, DateForm form) {
    if (form == DateForm::number) return Date{readDouble(value, path)};
    const std::string_view text = readText(value, path);
    if (const auto date = Date::fromISO8601(text)) return *date;
    path.fail("not a date: " + quoted(text));
}

Uuid readUuid(const Value& value, const Path& path) {
    const std::string_view text = readText(value, path);
    if (const auto uuid = Uuid::parse(text)) return *uuid;
    path.fail("not a UUID: " + quoted(text));
}

const Value& readList(const Value& value, const Path& path) {
    return expect(Value::Type::list, value, path, "a list");
}

const Value& readObject(const Value& value, const Path& path) {
    return expect(Value::Type::object, value, path, "an object");
}

std::string quoted(std::string_view text) {
    constexpr std::size_t longest = 40;
    std::size_t end = std::min(text.size(), longest);
    while (end < text.size() && end > 0 && (text[end] & 0xC0) == 0x80)
        --end;
    return '"' + Text::singleLine(text.substr(0, end)) + (end < text.size() ? "…\"" : "\"");
}

} // namespace tessivo::Json

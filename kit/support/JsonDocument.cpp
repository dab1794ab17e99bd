#include "kit/support/JsonDocument.h"

#include "kit/support/Json.h"
#include "kit/support/JsonNumber.h"

#include <algorithm>
#include <simdjson.h>
#include <string>

namespace tessivo::Json {

namespace {

namespace ondemand = simdjson::ondemand;

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// How many lists and objects may stand in each other under a key of the root.
constexpr int deepest = 1000;

/// Beyond this, the parser's buffers are given back after the document.
constexpr std::size_t largestKept = 1 << 20;

std::string faultText(simdjson::error_code code) {
    switch (code) {
    case simdjson::EMPTY:
        return "isn't JSON: it is empty";
    case simdjson::UTF8_ERROR:
        return "isn't UTF-8 text";
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

[[noreturn]] void fail(simdjson::error_code code) {
    throw DecodingError({}, faultText(code));
}

template <class T>
T valueOf(simdjson::simdjson_result<T>&& result) {
    T value;
    if (const auto error = std::move(result).get(value)) fail(error);
    return value;
}

/// By the first letter alone: whether the rest is one too shows when it is read.
Value::Type typeOf(simdjson::simdjson_result<ondemand::json_type>&& result) {
    switch (valueOf<ondemand::json_type>(std::move(result))) {
    case ondemand::json_type::object:
        return Value::Type::object;
    case ondemand::json_type::array:
        return Value::Type::list;
    case ondemand::json_type::string:
        return Value::Type::text;
    case ondemand::json_type::number:
        return Value::Type::number;
    case ondemand::json_type::boolean:
        return Value::Type::boolean;
    case ondemand::json_type::null:
        return Value::Type::null;
    default:
        fail(simdjson::TAPE_ERROR);
    }
}

/// Reads every value there is: the parser checks only what is read.
class Walk {
public:
    explicit Walk(std::vector<Value>& values) : m_values(values) {}

    void addFields(ondemand::object object, std::size_t at, int depth) {
        for (auto result : object) {
            auto field = valueOf<ondemand::field>(std::move(result));
            const std::string_view key = valueOf<std::string_view>(field.unescaped_key());
            add(field.value(), key, depth + 1);
        }
        close(at);
    }

private:
    void addEntries(ondemand::array array, std::size_t at, int depth) {
        for (auto entry : array)
            add(valueOf<ondemand::value>(std::move(entry)), {}, depth + 1);
        close(at);
    }

    /// What a value is shows in its first letter; whether the rest is one too, when it is read.
    void add(ondemand::value value, std::string_view key, int depth) {
        const std::size_t at = m_values.size();
        Value& added = m_values.emplace_back();
        added.key = key;
        const std::string_view token = value.raw_json_token();
        switch (token.empty() ? '\0' : token.front()) {
        case '{':
            added.type = Value::Type::object;
            return addFields(valueOf<ondemand::object>(value.get_object()), at, checked(depth));
        case '[':
            added.type = Value::Type::list;
            return addEntries(valueOf<ondemand::array>(value.get_array()), at, checked(depth));
        case '"':
            added.type = Value::Type::text;
            added.text = valueOf<std::string_view>(value.get_string());
            break;
        case 't':
        case 'f':
            added.type = Value::Type::boolean;
            added.text = valueOf<bool>(value.get_bool()) ? "true" : "false";
            break;
        case 'n':
            if (!valueOf<bool>(value.is_null())) fail(simdjson::N_ATOM_ERROR);
            break;
        default:
            if (token.empty() || (token.front() != '-' && (token.front() < '0' || token.front() > '9')))
                fail(simdjson::TAPE_ERROR);
            added.type = Value::Type::number;
            added.text = numberToken(token);
        }
    }

    /// The token reaches up to the next value or bracket; the number, to the blanks before that.
    static std::string_view numberToken(std::string_view token) {
        while (token.back() == ' ' || token.back() == '\n' || token.back() == '\r' || token.back() == '\t')
            token.remove_suffix(1);
        if (!Number::plainWhole(token) && !Number::isWellFormed(token))
            throw DecodingError({}, "isn't JSON: a number is malformed");
        return token;
    }

    static int checked(int depth) {
        if (depth > deepest) throw DecodingError({}, "is nested too deeply");
        return depth;
    }

    void close(std::size_t at) { m_values[at].span = std::uint32_t(m_values.size() - at); }

    std::vector<Value>& m_values;
};

} // namespace

const char* Value::nameOf(Type type) {
    static constexpr const char* names[] = {"null", "a boolean", "a number", "a text", "a list", "an object"};
    return names[std::size_t(type)];
}

struct Document::Parser {
    ondemand::parser parser;
    std::string bytes; ///< the text and the room behind it that the parser may look into
    std::vector<Value> values;
};

/// One for each thread serves all small documents; a document inside another's work gets its own.
std::unique_ptr<Document::Parser>& Document::spareParser() {
    static thread_local std::unique_ptr<Parser> spare;
    return spare;
}

Document::Document(std::string_view json)
    : m_parser(spareParser() ? std::move(spareParser()) : std::make_unique<Parser>()),
      m_values(std::move(m_parser->values)) {
    if (json.starts_with(byteOrderMark)) json.remove_prefix(byteOrderMark.size());
    // Some versions of the parser would pass over a second mark.
    if (json.starts_with(byteOrderMark)) fail(simdjson::TAPE_ERROR);

    std::string& bytes = m_parser->bytes;
    bytes.assign(json).append(simdjson::SIMDJSON_PADDING, '\0');
    m_values.assign(1, Value{{}, {}, 1, Value::Type::object});
    ondemand::document document;
    if (const auto error = m_parser->parser.iterate(bytes.data(), json.size(), bytes.size()).get(document))
        fail(error);
    if (const auto type = typeOf(document.type()); type != Value::Type::object)
        throw DecodingError({}, std::string("not an object but ") + Value::nameOf(type));
    Walk(m_values).addFields(valueOf<ondemand::object>(document.get_object()), 0, 0);
    if (!document.current_location().error()) fail(simdjson::TAPE_ERROR); // something stands behind it
}

Document::~Document() {
    if (std::max(m_parser->bytes.capacity(), m_values.capacity() * sizeof(Value)) > largestKept) return;
    m_parser->values = std::move(m_values);
    spareParser() = std::move(m_parser);
}

} // namespace tessivo::Json

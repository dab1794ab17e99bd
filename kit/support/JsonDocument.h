#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace tessivo::Json {

/// One value of a document. What stands in a list or an object lies behind it in the document's one row of
/// values, so a value is looked at where it is and never copied.
struct Value {
    enum class Type : std::uint8_t { null, boolean, number, text, list, object };
    /// "a list", as a fault says it.
    static const char* nameOf(Type type);

    /// Goes from entry to entry and passes over what stands in each.
    struct Iterator {
        const Value* at;

        const Value& operator*() const { return *at; }
        Iterator& operator++() {
            at += at->span;
            return *this;
        }
        bool operator==(const Iterator&) const = default;
    };

    std::string_view key;   ///< what it stands under in an object
    std::string_view text;  ///< a text without its escapes; a number or boolean as it is written
    std::uint32_t span = 1; ///< how many values it is, with all that stand in it
    Type type = Type::null;

    /// The entries of a list or an object in their order; anything else has none.
    Iterator begin() const { return {this + 1}; }
    Iterator end() const { return {this + span}; }
    std::size_t count() const {
        std::size_t count = 0;
        for (auto entry = begin(); entry != end(); ++entry)
            ++count;
        return count;
    }
};

/// A parsed JSON object, strict to its end: whatever isn't JSON, a lone surrogate, bytes that aren't UTF-8
/// and nesting beyond 1,000 levels under a key refuse the whole, wherever they stand. Numbers stay as they
/// are written, so none is too large here. A byte order mark is passed over.
class Document final {
public:
    /// Throws DecodingError where the text isn't one JSON object.
    explicit Document(std::string_view json);
    ~Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    /// The object; good as long as the document is there.
    const Value& root() const { return m_values.front(); }

private:
    struct Parser;
    static std::unique_ptr<Parser>& spareParser();

    std::unique_ptr<Parser> m_parser; ///< holds the bytes that the values point to
    std::vector<Value> m_values;
};

} // namespace tessivo::Json

#pragma once

#include "kit/support/Date.h"
#include "kit/support/Describe.h"
#include "kit/support/Json.h"
#include "kit/support/Uuid.h"

#include <cmath>
#include <concepts>
#include <limits>
#include <map>
#include <memory>
#include <set>
#include <simdjson.h>
#include <vector>

/// Strict reading of described records. For the codecs of the kit alone: it brings the parser with it.
/// A key of a plain member is required, that of a std::optional is not; null counts as absent; unknown
/// keys are passed over; of a key that stands twice the last one counts. Anything else that isn't what
/// the record says throws DecodingError. A number written as 2.0 or 2e3 is a whole number.
namespace tessivo::Json {

/// Where in the document the reader is; a chain on the stack that is spelled out only for a fault.
class Path {
public:
    Path() = default;
    Path(const Path& parent, std::string_view key) : m_parent(&parent), m_key(key) {}
    Path(const Path& parent, std::size_t index) : m_parent(&parent), m_index(index), m_isIndex(true) {}

    std::string text() const; ///< "results[3].status"
    [[noreturn]] void fail(const std::string& fault) const { throw DecodingError(text(), fault); }

private:
    const Path* m_parent = nullptr;
    std::string_view m_key;
    std::size_t m_index = 0;
    bool m_isIndex = false;
};

/// A parsed document. Nesting beyond 1,000 levels, a lone surrogate and anything that isn't UTF-8 JSON are
/// refused; a byte order mark is passed over.
class Document {
public:
    enum class HugeNumbers {
        refuse,      ///< a number that no 64 bits hold refuses the whole document
        failTheirKey ///< it fails only the key that it stands under, if that is read at all
    };

    /// Throws DecodingError where the text isn't JSON.
    Document(std::string_view text, HugeNumbers hugeNumbers);
    ~Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    simdjson::dom::element root() const { return m_root; }

private:
    std::unique_ptr<simdjson::dom::parser> m_parser;
    simdjson::dom::element m_root;
};

/// The text of an element. Throws DecodingError when it isn't one.
std::string_view readText(simdjson::dom::element element, const Path& path);
double readDouble(simdjson::dom::element element, const Path& path);
bool readBool(simdjson::dom::element element, const Path& path);
/// A whole number from `least` to `most`.
std::int64_t readSigned(simdjson::dom::element element, const Path& path, std::int64_t least,
                        std::int64_t most);
std::uint64_t readUnsigned(simdjson::dom::element element, const Path& path, std::uint64_t most);
Date readDate(simdjson::dom::element element, const Path& path, DateForm form);
Uuid readUuid(simdjson::dom::element element, const Path& path);
simdjson::dom::array readArray(simdjson::dom::element element, const Path& path);
simdjson::dom::object readObject(simdjson::dom::element element, const Path& path);
/// A text as it may stand in the message of a fault: short, quoted, on one line.
std::string quoted(std::string_view text);

template <class T>
struct IsOptional : std::false_type {};
template <class T>
struct IsOptional<std::optional<T>> : std::true_type {};

template <class T>
class Reader {
public:
    static T read(simdjson::dom::element element, const Path& path, DateForm form) {
        if constexpr (std::same_as<T, bool>) {
            return readBool(element, path);
        } else if constexpr (std::signed_integral<T>) {
            return T(readSigned(element, path, std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
        } else if constexpr (std::unsigned_integral<T>) {
            return T(readUnsigned(element, path, std::numeric_limits<T>::max()));
        } else if constexpr (std::same_as<T, double>) {
            return readDouble(element, path);
        } else if constexpr (std::same_as<T, std::string>) {
            return std::string(readText(element, path));
        } else if constexpr (std::same_as<T, Date>) {
            return readDate(element, path, form);
        } else if constexpr (std::same_as<T, Uuid>) {
            return readUuid(element, path);
        } else if constexpr (std::is_enum_v<T>) {
            return readCase(readText(element, path), path);
        } else {
            return readRecord(element, path, form);
        }
    }

private:
    static T readCase(std::string_view raw, const Path& path) {
        std::optional<T> found;
        boost::mp11::mp_for_each<boost::describe::describe_enumerators<T>>([&](auto described) {
            if (raw == std::string_view(described.name)) found = described.value;
        });
        if (!found) path.fail("unknown case " + quoted(raw));
        return *found;
    }

    static T readRecord(simdjson::dom::element element, const Path& path, DateForm form) {
        using Members = boost::describe::describe_members<T, boost::describe::mod_any_access>;
        constexpr std::size_t count = boost::mp11::mp_size<Members>::value;
        static constexpr auto names = []<template <class...> class L, class... D>(L<D...>) {
            return std::array<std::string_view, count>{D::name...};
        }(Members{});

        std::array<simdjson::dom::element, count> elements;
        std::array<bool, count> found{};
        std::size_t expected = 0;
        for (const auto field : readObject(element, path)) {
            for (std::size_t tried = 0; tried < count; ++tried) {
                const std::size_t index = (expected + tried) % count;
                if (field.key != names[index]) continue;
                elements[index] = field.value;
                found[index] = !field.value.is_null();
                expected = index + 1;
                break;
            }
        }
        T record;
        boost::mp11::mp_for_each<boost::mp11::mp_iota_c<count>>([&](auto index) {
            using Descriptor = boost::mp11::mp_at<Members, decltype(index)>;
            auto& member = record.*Descriptor::pointer;
            using Member = std::remove_reference_t<decltype(member)>;
            const Path here(path, names[index]);
            if constexpr (IsOptional<Member>::value) {
                member.reset();
                if (found[index])
                    member = Reader<typename Member::value_type>::read(elements[index], here, form);
            } else {
                if (!found[index]) here.fail("missing");
                member = Reader<Member>::read(elements[index], here, form);
            }
        });
        return record;
    }
};

template <class T>
struct Reader<std::vector<T>> {
    static std::vector<T> read(simdjson::dom::element element, const Path& path, DateForm form) {
        const auto array = readArray(element, path);
        std::vector<T> list;
        list.reserve(std::min<std::size_t>(array.size(), 64)); // what a file claims buys no memory
        std::size_t index = 0;
        for (const auto entry : array)
            list.push_back(Reader<T>::read(entry, Path(path, index++), form));
        return list;
    }
};

template <class T>
struct Reader<std::set<T>> {
    static std::set<T> read(simdjson::dom::element element, const Path& path, DateForm form) {
        std::set<T> set;
        std::size_t index = 0;
        for (const auto entry : readArray(element, path))
            set.insert(Reader<T>::read(entry, Path(path, index++), form));
        return set;
    }
};

template <class T>
struct Reader<std::map<std::string, T>> {
    static std::map<std::string, T> read(simdjson::dom::element element, const Path& path, DateForm form) {
        std::map<std::string, simdjson::dom::element> last;
        for (const auto field : readObject(element, path))
            last.insert_or_assign(std::string(field.key), field.value);
        std::map<std::string, T> map;
        for (const auto& [key, value] : last) {
            if (!value.is_null()) map.emplace(key, Reader<T>::read(value, Path(path, key), form));
        }
        return map;
    }
};

/// A map with an enumeration as key is an array of alternating keys and values.
template <class Enum, class T>
requires std::is_enum_v<Enum>
struct Reader<std::map<Enum, T>> {
    static std::map<Enum, T> read(simdjson::dom::element element, const Path& path, DateForm form) {
        std::map<Enum, T> map;
        std::optional<Enum> key;
        std::size_t index = 0;
        for (const auto entry : readArray(element, path)) {
            const Path here(path, index++);
            if (!key) {
                key = Reader<Enum>::read(entry, here, form);
            } else {
                map.insert_or_assign(*key, Reader<T>::read(entry, here, form));
                key.reset();
            }
        }
        if (key) path.fail("a key without a value");
        return map;
    }
};

/// Reads a whole document as one record. Throws DecodingError.
template <class T>
T read(std::string_view text, DateForm form) {
    const Document document(text, Document::HugeNumbers::failTheirKey);
    return Reader<T>::read(document.root(), Path(), form);
}

} // namespace tessivo::Json

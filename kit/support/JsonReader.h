#pragma once

#include "kit/support/Date.h"
#include "kit/support/Describe.h"
#include "kit/support/Json.h"
#include "kit/support/JsonDocument.h"
#include "kit/support/JsonNumber.h"
#include "kit/support/Uuid.h"

#include <charconv>
#include <concepts>
#include <map>
#include <set>

/// Strict reading of described records.
/// A key of a plain member is required, that of a std::optional is not; null counts as absent; unknown
/// keys are passed over; of a key that stands twice the last one counts. Anything else that isn't what
/// the record says throws DecodingError. A number written as 2.0 or 2e3 is a whole number,
/// and one of any size may be read as a double.
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

/// What a value says. Each throws DecodingError where it is of another type.
std::string_view readText(const Value& value, const Path& path);
double readDouble(const Value& value, const Path& path);
bool readBool(const Value& value, const Path& path);
/// The plain digits of a whole number of any size.
std::string readDigits(const Value& value, const Path& path);
Date readDate(const Value& value, const Path& path, DateForm form);
Uuid readUuid(const Value& value, const Path& path);
/// The value itself, if it is a list or an object.
const Value& readList(const Value& value, const Path& path);
const Value& readObject(const Value& value, const Path& path);
/// A text as it may stand in the message of a fault: short, quoted, on one line.
std::string quoted(std::string_view text);

template <class T>
struct IsOptional : std::false_type {};
template <class T>
struct IsOptional<std::optional<T>> : std::true_type {};

template <class T>
class Reader {
public:
    static T read(const Value& value, const Path& path, DateForm form) {
        if constexpr (requires { Form<T>::read(value, path); }) {
            return Form<T>::read(value, path);
        } else if constexpr (std::same_as<T, bool>) {
            return readBool(value, path);
        } else if constexpr (std::integral<T>) {
            return readWhole(value, path);
        } else if constexpr (std::same_as<T, double>) {
            return readDouble(value, path);
        } else if constexpr (std::same_as<T, std::string>) {
            return std::string(readText(value, path));
        } else if constexpr (std::same_as<T, Date>) {
            return readDate(value, path, form);
        } else if constexpr (std::same_as<T, Uuid>) {
            return readUuid(value, path);
        } else if constexpr (std::is_enum_v<T>) {
            return readCase(readText(value, path), path);
        } else {
            return readRecord(value, path, form);
        }
    }

private:
    static T readWhole(const Value& value, const Path& path) {
        if (value.type == Value::Type::number) {
            const auto plain = Number::plainWhole(value.text);
            if (plain && std::in_range<T>(*plain)) return T(*plain);
        }
        T number{};
        const std::string digits = readDigits(value, path);
        if (std::from_chars(digits.data(), digits.data() + digits.size(), number).ec != std::errc())
            path.fail("out of range");
        return number;
    }

    static T readCase(std::string_view raw, const Path& path) {
        std::optional<T> found;
        boost::mp11::mp_for_each<boost::describe::describe_enumerators<T>>([&](auto described) {
            if (raw == std::string_view(described.name)) found = described.value;
        });
        if (!found) path.fail("unknown case " + quoted(raw));
        return *found;
    }

    static T readRecord(const Value& value, const Path& path, DateForm form) {
        using Members = boost::describe::describe_members<T, boost::describe::mod_any_access>;
        constexpr std::size_t count = boost::mp11::mp_size<Members>::value;
        static constexpr auto names = []<template <class...> class L, class... D>(L<D...>) {
            return std::array<std::string_view, count>{D::name...};
        }(Members{});

        std::array<const Value*, count> found{};
        std::size_t expected = 0;
        for (const Value& field : readObject(value, path)) {
            for (std::size_t tried = 0; tried < count; ++tried) {
                const std::size_t index = (expected + tried) % count;
                if (field.key != names[index]) continue;
                found[index] = field.type == Value::Type::null ? nullptr : &field;
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
                    member = Reader<typename Member::value_type>::read(*found[index], here, form);
            } else {
                if (!found[index]) here.fail("missing");
                member = Reader<Member>::read(*found[index], here, form);
            }
        });
        return record;
    }
};

template <class T>
struct Reader<std::vector<T>> {
    static std::vector<T> read(const Value& value, const Path& path, DateForm form) {
        std::vector<T> list;
        list.reserve(readList(value, path).count());
        std::size_t index = 0;
        for (const Value& entry : value)
            list.push_back(Reader<T>::read(entry, Path(path, index++), form));
        return list;
    }
};

template <class T>
struct Reader<std::set<T>> {
    static std::set<T> read(const Value& value, const Path& path, DateForm form) {
        std::set<T> set;
        std::size_t index = 0;
        for (const Value& entry : readList(value, path))
            set.insert(set.end(), Reader<T>::read(entry, Path(path, index++), form)); // most are sorted
        return set;
    }
};

template <class T>
struct Reader<std::map<std::string, T>> {
    static std::map<std::string, T> read(const Value& value, const Path& path, DateForm form) {
        std::map<std::string_view, const Value*> last;
        for (const Value& field : readObject(value, path))
            last.insert_or_assign(field.key, &field);
        std::map<std::string, T> map;
        for (const auto& [key, field] : last) {
            if (field->type != Value::Type::null)
                map.emplace(key, Reader<T>::read(*field, Path(path, key), form));
        }
        return map;
    }
};

/// A map with an enumeration as key is an array of alternating keys and values.
template <class Enum, class T>
    requires std::is_enum_v<Enum>
struct Reader<std::map<Enum, T>> {
    static std::map<Enum, T> read(const Value& value, const Path& path, DateForm form) {
        std::map<Enum, T> map;
        std::optional<Enum> key;
        std::size_t index = 0;
        for (const Value& entry : readList(value, path)) {
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
    const Document document(text);
    return Reader<T>::read(document.root(), Path(), form);
}

} // namespace tessivo::Json

#pragma once

#include "kit/support/Date.h"
#include "kit/support/Describe.h"
#include "kit/support/Json.h"
#include "kit/support/Uuid.h"

#include <concepts>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace tessivo::Json {

/// Writes JSON into a text. An absent value is left out; invalid UTF-8 becomes U+FFFD; doubles are written
/// with the fewest digits that read back as the same value. A double that isn't finite, or a date that the
/// form can't hold, throws std::invalid_argument: there is no JSON for it.
class Writer {
public:
    Writer(Layout layout, DateForm form)
        : m_layout(layout), m_form(form), m_line(layout == Layout::compact ? "" : "\n") {}

    void write(bool flag) { m_out += flag ? "true" : "false"; }
    void write(std::signed_integral auto number) { writeSigned(number); }
    void write(std::unsigned_integral auto number) { writeUnsigned(number); }
    void write(double number);
    /// A double that reads back as a double, whole or not: 3 is written "3.0".
    void writeFraction(double number);
    void write(std::string_view text);
    void write(const std::string& text) { write(std::string_view(text)); }
    void write(Date date);
    void write(const Uuid& uuid) { write(std::string_view(uuid.text())); }
    void writeNull() { m_out += "null"; }

    template <class E>
        requires std::is_enum_v<E>
    void write(E value) {
        write(rawValue(value));
    }

    template <class T>
    void write(const std::vector<T>& list) {
        writeList(list);
    }
    template <class T>
    void write(const std::set<T>& set) {
        writeList(set);
    }

    template <class T>
    void write(const std::map<std::string, T>& map) {
        open('{');
        for (const auto& [key, value] : map) {
            writeKey(key);
            write(value);
        }
        close('}');
    }

    /// A map with an enumeration as key is an array of alternating keys and values.
    template <class E, class T>
        requires std::is_enum_v<E>
    void write(const std::map<E, T>& map) {
        open('[');
        for (const auto& [key, value] : map) {
            separate();
            write(key);
            separate();
            write(value);
        }
        close(']');
    }

    template <class T>
        requires boost::describe::has_describe_members<T>::value
    void write(const T& record) {
        using Members = boost::describe::describe_members<T, boost::describe::mod_any_access>;
        using Sorted = boost::mp11::mp_sort<Members, IsNamedBefore>;
        open('{');
        if (m_layout == Layout::prettySorted)
            writeMembers<Sorted>(record);
        else
            writeMembers<Members>(record);
        close('}');
    }

    template <class T>
        requires requires(Writer& writer, const T& value) { Form<T>::write(writer, value); }
    void write(const T& value) {
        Form<T>::write(*this, value);
    }

    // The pieces of an object or a list, for values that no record describes.
    void open(char bracket);
    void writeKey(std::string_view key);
    void separate(); ///< before each element of a list
    void close(char bracket);

    std::string take();

private:
    template <class A, class B>
    using IsNamedBefore = boost::mp11::mp_bool<(std::string_view(A::name) < std::string_view(B::name))>;

    template <class Members, class T>
    void writeMembers(const T& record) {
        boost::mp11::mp_for_each<Members>(
            [&](auto member) { writeMember(member.name, record.*member.pointer); });
    }
    template <class T>
    void writeMember(std::string_view name, const T& value) {
        writeName(name);
        write(value);
    }
    template <class T>
    void writeMember(std::string_view name, const std::optional<T>& value) {
        if (value) writeMember(name, *value);
    }

    template <class List>
    void writeList(const List& list) {
        open('[');
        for (const auto& entry : list) {
            separate();
            write(entry);
        }
        close(']');
    }

    void writeSigned(std::int64_t number);
    void writeUnsigned(std::uint64_t number);
    void writeName(std::string_view name); ///< of a member: nothing in it needs an escape

    Layout m_layout;
    DateForm m_form;
    std::string m_line; ///< a line feed and the blanks of this depth; empty where all is one line
    std::string m_out;
    bool m_isFirst = true;
};

/// A whole document; the pretty one ends with a line feed. Throws std::invalid_argument as told above.
template <class T>
std::string write(const T& value, Layout layout, DateForm form) {
    Writer writer(layout, form);
    writer.write(value);
    std::string text = writer.take();
    if (layout == Layout::prettySorted) text += '\n';
    return text;
}

} // namespace tessivo::Json

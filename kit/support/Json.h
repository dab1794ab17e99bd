#pragma once

#include <stdexcept>
#include <string>

namespace tessivo {

/// Thrown where a file or stored data isn't the record it should be. The message names the path of
/// the fault and what is wrong: "results[3].status: unknown case \"great\"".
class DecodingError : public std::runtime_error {
public:
    DecodingError(std::string path, const std::string& fault)
        : std::runtime_error(path.empty() ? fault : path + ": " + fault), m_path(std::move(path)) {}

    const std::string& path() const { return m_path; }

private:
    std::string m_path;
};

namespace Json {

/// How a date stands in JSON: as the number of seconds since 2001, or as ISO 8601 text with whole seconds.
enum class DateForm { number, iso8601 };

/// One line without blanks, or indented by two blanks with the keys sorted at every level.
enum class Layout { compact, prettySorted };

class Path;
class Writer;
struct Value;

/// The form of a type that no description tells. A specialisation holds both ways, side by side:
///     static T read(const Value& value, const Path& path);
///     static void write(Writer& writer, const T& value);
template <class T>
struct Form;

} // namespace Json
} // namespace tessivo

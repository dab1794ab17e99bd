#pragma once

#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace tessivo {

/// The command line isn't one that the program knows.
class UsageError final : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The words after a command: options with a value ("--as text"), flags ("--serial") and plain words.
class Arguments final {
public:
    /// Throws UsageError for an option that isn't named here, one without its value, and one given twice.
    Arguments(const std::vector<std::string>& words, const std::set<std::string>& options,
              const std::set<std::string>& flags);

    bool has(const std::string& flag) const { return m_values.contains(flag); }
    std::optional<std::string> value(const std::string& option) const;
    /// Throws UsageError when the option isn't given.
    std::string need(const std::string& option) const;
    /// Throws UsageError unless there is exactly this number of plain words.
    const std::vector<std::string>& words(std::size_t count) const;

private:
    std::map<std::string, std::string> m_values;
    std::vector<std::string> m_words;
};

} // namespace tessivo

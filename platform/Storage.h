#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace tessivo {

/// One value for the defaults.
struct DefaultsEntry {
    enum class Kind { data, text };

    std::string key;
    Kind kind = Kind::data;
    std::string value;
};

/// The user's defaults: a small key and value store. Main thread.
class Defaults {
public:
    virtual ~Defaults() = default;

    virtual std::optional<std::string> data(const std::string& key) const = 0;
    virtual std::optional<std::string> text(const std::string& key) const = 0;
    /// Stored for good when the call returns, or left as it was; the error tells why.
    virtual std::error_code setData(const std::string& key, const std::string& bytes) = 0;
    virtual std::error_code setText(const std::string& key, const std::string& text) = 0;
    /// Stores all of them in this order, up to the first that can't be stored; in one write, all or none,
    /// where the platform's defaults are one file.
    virtual std::error_code set(const std::vector<DefaultsEntry>& entries) {
        for (const DefaultsEntry& entry : entries) {
            const bool isData = entry.kind == DefaultsEntry::Kind::data;
            if (auto error = isData ? setData(entry.key, entry.value) : setText(entry.key, entry.value))
                return error;
        }
        return {};
    }
};

class Folders {
public:
    virtual ~Folders() = default;

    /// The user's application support folders, the preferred one first.
    virtual std::vector<std::filesystem::path> applicationSupport() const = 0;
};

} // namespace tessivo

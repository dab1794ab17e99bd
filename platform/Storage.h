#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tessivo {

/// The user's defaults: a small key and value store. Main thread.
class Defaults {
public:
    virtual ~Defaults() = default;

    virtual std::optional<std::string> data(const std::string& key) const = 0;
    virtual std::optional<std::string> text(const std::string& key) const = 0;
    /// Stored for good when the call returns, or left as it was.
    virtual void setData(const std::string& key, const std::string& bytes) = 0;
    virtual void setText(const std::string& key, const std::string& text) = 0;
};

class Folders {
public:
    virtual ~Folders() = default;

    /// The user's application support folders, the preferred one first.
    virtual std::vector<std::filesystem::path> applicationSupport() const = 0;
};

} // namespace tessivo

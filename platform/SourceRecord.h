#pragma once

#include "kit/support/Property.h"

#include <mutex>
#include <string>
#include <string_view>

namespace tessivo {

/// What the facts of a capture were made from: of every file that was asked for its text, or why it
/// couldn't be read; of every link where it leads. So whoever gets the capture sees why a fact is missing.
/// The first answer of a path is the one that is kept. Any thread.
class SourceRecord final {
public:
    /// Of a longer text the beginning is kept, in bytes.
    static constexpr std::size_t largestText = 16u << 10;
    /// All texts together; what comes after is left out and counted.
    static constexpr std::size_t largestTotal = 512u << 10;

    void addText(const std::string& path, std::string_view bytes);
    void addLink(const std::string& path, const std::string& target);
    void addFault(const std::string& path, const std::string& fault);

    /// Path to {"text"} (with "bytes", the whole length, where it was cut; what isn't UTF-8 is replaced),
    /// {"link"} or {"fault"}.
    PropertyMap sources() const;
    std::int64_t leftOut() const;

private:
    void add(const std::string& path, PropertyMap entry, std::size_t bytes);

    mutable std::mutex m_mutex;
    PropertyMap m_sources;
    std::size_t m_total = 0;
    std::int64_t m_leftOut = 0;
};

} // namespace tessivo

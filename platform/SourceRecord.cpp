#include "platform/SourceRecord.h"

#include "kit/support/Text.h"

#include <utility>

namespace tessivo {

void SourceRecord::addText(const std::string& path, std::string_view bytes) {
    std::string text = Text::repaired(bytes.substr(0, largestText));
    const std::size_t kept = text.size();
    PropertyMap entry{{"text", std::move(text)}};
    if (bytes.size() > largestText) entry["bytes"] = std::int64_t(bytes.size());
    add(path, std::move(entry), kept);
}

void SourceRecord::addLink(const std::string& path, const std::string& target) {
    add(path, {{"link", Text::repaired(target)}}, target.size());
}

void SourceRecord::addFault(const std::string& path, const std::string& fault) {
    add(path, {{"fault", fault}}, fault.size());
}

void SourceRecord::add(const std::string& path, PropertyMap entry, std::size_t bytes) {
    std::string key = Text::repaired(path);
    const std::lock_guard lock(m_mutex);
    if (m_sources.contains(key)) return;
    if (m_total + key.size() + bytes > largestTotal) {
        ++m_leftOut;
        return;
    }
    m_total += key.size() + bytes;
    m_sources.emplace(std::move(key), std::move(entry));
}

PropertyMap SourceRecord::sources() const {
    const std::lock_guard lock(m_mutex);
    return m_sources;
}

std::int64_t SourceRecord::leftOut() const {
    const std::lock_guard lock(m_mutex);
    return m_leftOut;
}

} // namespace tessivo

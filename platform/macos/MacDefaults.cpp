#include "platform/macos/MacDefaults.h"

#include "platform/macos/CFRef.h"
#include "platform/macos/PropertyValue.h"

namespace tessivo {

namespace {

CFRef<CFStringRef> string(const std::string& text) {
    return CFRef<CFStringRef>(CFStringCreateWithBytes(kCFAllocatorDefault,
                                                      reinterpret_cast<const UInt8*>(text.data()),
                                                      CFIndex(text.size()), kCFStringEncodingUTF8, false));
}

CFRef<CFPropertyListRef> stored(CFStringRef application, CFStringRef key) {
    if (!application || !key) return {};
    return CFRef<CFPropertyListRef>(
        CFPreferencesCopyValue(key, application, kCFPreferencesCurrentUser, kCFPreferencesAnyHost));
}

CFRef<CFPropertyListRef> stored(const std::string& application, const std::string& key) {
    return stored(string(application).get(), string(key).get());
}

CFRef<CFPropertyListRef> object(const DefaultsEntry& entry) {
    if (entry.kind == DefaultsEntry::Kind::text)
        return CFRef<CFPropertyListRef>(string(entry.value).release());
    const auto* bytes = reinterpret_cast<const UInt8*>(entry.value.data());
    return CFRef<CFPropertyListRef>(CFDataCreate(kCFAllocatorDefault, bytes, CFIndex(entry.value.size())));
}

/// One value on its way: what it is to be, and what it was.
struct Change {
    CFRef<CFStringRef> key;
    CFRef<CFPropertyListRef> value;
    CFRef<CFPropertyListRef> before;
};

} // namespace

std::optional<std::string> MacDefaults::data(const std::string& key) const {
    const auto value = stored(m_applicationID, key);
    if (!value || CFGetTypeID(value.get()) != CFDataGetTypeID()) return std::nullopt;
    const auto bytes = static_cast<CFDataRef>(value.get());
    return std::string(reinterpret_cast<const char*>(CFDataGetBytePtr(bytes)),
                       std::size_t(CFDataGetLength(bytes)));
}

std::optional<std::string> MacDefaults::text(const std::string& key) const {
    const auto value = stored(m_applicationID, key);
    if (!value || CFGetTypeID(value.get()) != CFStringGetTypeID()) return std::nullopt;
    return PropertyValue::text(static_cast<CFStringRef>(value.get()));
}

std::error_code MacDefaults::setData(const std::string& key, const std::string& bytes) {
    return set({{key, DefaultsEntry::Kind::data, bytes}});
}

std::error_code MacDefaults::setText(const std::string& key, const std::string& text) {
    return set({{key, DefaultsEntry::Kind::text, text}});
}

std::error_code MacDefaults::set(const std::vector<DefaultsEntry>& entries) {
    const auto id = string(m_applicationID);
    std::vector<Change> changes;
    for (const DefaultsEntry& entry : entries) {
        auto key = string(entry.key);
        auto value = object(entry);
        if (!id || !key || !value) return std::make_error_code(std::errc::invalid_argument); // all or none
        auto before = stored(id.get(), key.get());
        changes.push_back({std::move(key), std::move(value), std::move(before)});
    }
    const auto store = [&](CFRef<CFPropertyListRef> Change::* what) {
        for (const Change& change : changes)
            CFPreferencesSetValue(change.key.get(), (change.*what).get(), id.get(), kCFPreferencesCurrentUser,
                                  kCFPreferencesAnyHost);
        return CFPreferencesSynchronize(id.get(), kCFPreferencesCurrentUser, kCFPreferencesAnyHost);
    };
    if (changes.empty() || store(&Change::value)) return {};
    store(&Change::before);
    return std::make_error_code(std::errc::io_error);
}

} // namespace tessivo

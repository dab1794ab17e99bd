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

CFRef<CFPropertyListRef> stored(const std::string& application, const std::string& key) {
    const auto id = string(application);
    const auto name = string(key);
    if (!id || !name) return {};
    return CFRef<CFPropertyListRef>(
        CFPreferencesCopyValue(name.get(), id.get(), kCFPreferencesCurrentUser, kCFPreferencesAnyHost));
}

std::error_code store(const std::string& application, const std::string& key, CFPropertyListRef value) {
    const auto id = string(application);
    const auto name = string(key);
    const auto failed = std::make_error_code(std::errc::io_error);
    if (!id || !name || !value) return failed;
    const auto before = stored(application, key);
    const auto set = [&](CFPropertyListRef property) {
        CFPreferencesSetValue(name.get(), property, id.get(), kCFPreferencesCurrentUser,
                              kCFPreferencesAnyHost);
        return CFPreferencesSynchronize(id.get(), kCFPreferencesCurrentUser, kCFPreferencesAnyHost);
    };
    if (set(value)) return {};
    set(before.get());
    return failed;
}

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
    const CFRef<CFDataRef> value(CFDataCreate(
        kCFAllocatorDefault, reinterpret_cast<const UInt8*>(bytes.data()), CFIndex(bytes.size())));
    return store(m_applicationID, key, value.get());
}

std::error_code MacDefaults::setText(const std::string& key, const std::string& text) {
    const auto value = string(text);
    return store(m_applicationID, key, value.get());
}

} // namespace tessivo

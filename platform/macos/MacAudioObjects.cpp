#include "platform/macos/MacAudioObjects.h"

#include "platform/macos/CFRef.h"
#include "platform/macos/PropertyValue.h"

#include <CoreAudio/CoreAudio.h>

namespace tessivo {

namespace {

AudioObjectPropertyAddress address(std::uint32_t selector, std::uint32_t scope) {
    return {.mSelector = selector, .mScope = scope, .mElement = kAudioObjectPropertyElementMain};
}

/// The properties whose data is a reference to a text and no numbers. Read as anything else it would be lost.
bool isText(std::uint32_t selector) {
    return selector == kAudioObjectPropertyName ||
           selector == kAudioDevicePropertyDataSourceNameForIDCFString;
}

} // namespace

bool MacAudioObjects::hasProperty(std::uint32_t object, std::uint32_t selector, std::uint32_t scope) const {
    const auto property = address(selector, scope);
    return AudioObjectHasProperty(object, &property);
}

std::optional<std::uint32_t> MacAudioObjects::propertyDataSize(std::uint32_t object, std::uint32_t selector,
                                                               std::uint32_t scope) const {
    const auto property = address(selector, scope);
    UInt32 size = 0;
    if (AudioObjectGetPropertyDataSize(object, &property, 0, nullptr, &size) != noErr) return std::nullopt;
    return size;
}

std::optional<std::vector<std::uint32_t>>
MacAudioObjects::numbers(std::uint32_t object, std::uint32_t selector, std::uint32_t scope) const {
    const auto size = isText(selector) ? std::nullopt : propertyDataSize(object, selector, scope);
    if (!size) return std::nullopt;
    std::vector<std::uint32_t> values(*size / sizeof(std::uint32_t));
    if (values.empty()) return values;
    // What there was room for; the list may have become shorter since.
    auto bytes = UInt32(values.size() * sizeof(std::uint32_t));
    const auto property = address(selector, scope);
    if (AudioObjectGetPropertyData(object, &property, 0, nullptr, &bytes, values.data()) != noErr)
        return std::nullopt;
    values.resize(std::min(values.size(), std::size_t(bytes / sizeof(std::uint32_t))));
    return values;
}

std::optional<std::string> MacAudioObjects::text(std::uint32_t object, std::uint32_t selector,
                                                 std::uint32_t scope) const {
    if (selector != kAudioObjectPropertyName) return std::nullopt;
    const auto property = address(selector, scope);
    CFRef<CFStringRef> name;
    UInt32 size = sizeof(CFStringRef);
    if (AudioObjectGetPropertyData(object, &property, 0, nullptr, &size, name.out()) != noErr || !name)
        return std::nullopt;
    return PropertyValue::text(name.get());
}

std::optional<std::string> MacAudioObjects::translatedText(std::uint32_t object, std::uint32_t selector,
                                                           std::uint32_t scope, std::uint32_t code) const {
    if (selector != kAudioDevicePropertyDataSourceNameForIDCFString) return std::nullopt;
    const auto property = address(selector, scope);
    CFRef<CFStringRef> name;
    AudioValueTranslation translation{.mInputData = &code,
                                      .mInputDataSize = sizeof code,
                                      .mOutputData = name.out(),
                                      .mOutputDataSize = sizeof(CFStringRef)};
    UInt32 size = sizeof translation;
    if (AudioObjectGetPropertyData(object, &property, 0, nullptr, &size, &translation) != noErr || !name)
        return std::nullopt;
    return PropertyValue::text(name.get());
}

} // namespace tessivo

#include "platform/macos/MacAudioObjects.h"

#include "platform/macos/CFRef.h"
#include "platform/macos/PropertyValue.h"

#include <CoreAudio/CoreAudio.h>

namespace tessivo {

namespace {

AudioObjectPropertyAddress property(const AudioAddress& address) {
    return {
        .mSelector = address.selector, .mScope = address.scope, .mElement = kAudioObjectPropertyElementMain};
}

/// The properties whose data is a reference to a text and no numbers. Read as anything else it would be lost.
bool isText(std::uint32_t selector) {
    return selector == kAudioObjectPropertyName ||
           selector == kAudioDevicePropertyDataSourceNameForIDCFString;
}

} // namespace

bool MacAudioObjects::hasProperty(const AudioAddress& address) const {
    const auto key = property(address);
    return AudioObjectHasProperty(address.object, &key);
}

std::optional<std::uint32_t> MacAudioObjects::propertyDataSize(const AudioAddress& address) const {
    const auto key = property(address);
    UInt32 size = 0;
    if (AudioObjectGetPropertyDataSize(address.object, &key, 0, nullptr, &size) != noErr) return std::nullopt;
    return size;
}

std::optional<std::vector<std::uint32_t>> MacAudioObjects::numbers(const AudioAddress& address) const {
    const auto size = isText(address.selector) ? std::nullopt : propertyDataSize(address);
    if (!size) return std::nullopt;
    std::vector<std::uint32_t> values(*size / sizeof(std::uint32_t));
    if (values.empty()) return values;
    // What there was room for; the list may have become shorter since.
    auto bytes = UInt32(values.size() * sizeof(std::uint32_t));
    const auto key = property(address);
    if (AudioObjectGetPropertyData(address.object, &key, 0, nullptr, &bytes, values.data()) != noErr)
        return std::nullopt;
    values.resize(std::min(values.size(), std::size_t(bytes / sizeof(std::uint32_t))));
    return values;
}

std::optional<std::string> MacAudioObjects::text(const AudioAddress& address) const {
    if (address.selector != kAudioObjectPropertyName) return std::nullopt;
    const auto key = property(address);
    CFRef<CFStringRef> name;
    UInt32 size = sizeof(CFStringRef);
    if (AudioObjectGetPropertyData(address.object, &key, 0, nullptr, &size, name.out()) != noErr || !name)
        return std::nullopt;
    return PropertyValue::text(name.get());
}

std::optional<std::string> MacAudioObjects::translatedText(const AudioAddress& address,
                                                           std::uint32_t code) const {
    if (address.selector != kAudioDevicePropertyDataSourceNameForIDCFString) return std::nullopt;
    const auto key = property(address);
    CFRef<CFStringRef> name;
    AudioValueTranslation translation{.mInputData = &code,
                                      .mInputDataSize = sizeof code,
                                      .mOutputData = name.out(),
                                      .mOutputDataSize = sizeof(CFStringRef)};
    UInt32 size = sizeof translation;
    if (AudioObjectGetPropertyData(address.object, &key, 0, nullptr, &size, &translation) != noErr || !name)
        return std::nullopt;
    return PropertyValue::text(name.get());
}

} // namespace tessivo

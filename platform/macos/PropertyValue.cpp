#include "platform/macos/PropertyValue.h"

namespace tessivo::PropertyValue {

namespace {

std::optional<Property> value(CFTypeRef object, int depth);

Property number(CFNumberRef object) {
    if (CFNumberIsFloatType(object)) {
        double real = 0;
        CFNumberGetValue(object, kCFNumberDoubleType, &real);
        return real;
    }
    std::int64_t whole = 0;
    // False for a value that 64 signed bits don't hold; its bits are what counts.
    CFNumberGetValue(object, kCFNumberSInt64Type, &whole);
    return whole;
}

PropertyList list(CFArrayRef array, int depth) {
    PropertyList out;
    const CFIndex count = CFArrayGetCount(array);
    for (CFIndex i = 0; i < count; ++i)
        if (auto element = value(CFArrayGetValueAtIndex(array, i), depth)) out.push_back(std::move(*element));
    return out;
}

struct Walk {
    PropertyMap map;
    int depth;
};

PropertyMap entries(CFDictionaryRef dictionary, int depth) {
    Walk walk{.map = {}, .depth = depth};
    CFDictionaryApplyFunction(
        dictionary,
        [](const void* key, const void* object, void* context) {
            auto& walk = *static_cast<Walk*>(context);
            if (CFGetTypeID(key) != CFStringGetTypeID()) return;
            if (auto plain = value(object, walk.depth))
                walk.map.insert_or_assign(text(static_cast<CFStringRef>(key)), std::move(*plain));
        },
        &walk);
    return std::move(walk.map);
}

std::optional<Property> value(CFTypeRef object, int depth) {
    if (!object || depth > greatestDepth) return std::nullopt;
    const CFTypeID type = CFGetTypeID(object);
    // Before the number: a flag answers as a number too.
    if (type == CFBooleanGetTypeID()) return bool(CFBooleanGetValue(static_cast<CFBooleanRef>(object)));
    if (type == CFNumberGetTypeID()) return number(static_cast<CFNumberRef>(object));
    if (type == CFStringGetTypeID()) return text(static_cast<CFStringRef>(object));
    if (type == CFArrayGetTypeID()) return list(static_cast<CFArrayRef>(object), depth + 1);
    if (type == CFDictionaryGetTypeID()) return entries(static_cast<CFDictionaryRef>(object), depth + 1);
    return std::nullopt;
}

} // namespace

std::string text(CFStringRef string) {
    const CFRange whole = CFRangeMake(0, CFStringGetLength(string));
    constexpr UInt8 replacement = '?';
    const auto convert = [&](UInt8* bytes, CFIndex room) {
        CFIndex used = 0;
        CFStringGetBytes(string, whole, kCFStringEncodingUTF8, replacement, false, bytes, room, &used);
        return used;
    };
    std::string out(std::size_t(convert(nullptr, 0)), '\0');
    out.resize(std::size_t(convert(reinterpret_cast<UInt8*>(out.data()), CFIndex(out.size()))));
    return out;
}

std::optional<Property> value(CFTypeRef object) {
    return value(object, 0);
}

std::optional<PropertyMap> map(CFTypeRef object) {
    if (!object || CFGetTypeID(object) != CFDictionaryGetTypeID()) return std::nullopt;
    return entries(static_cast<CFDictionaryRef>(object), 0);
}

} // namespace tessivo::PropertyValue

#include "tests/macos/system/StandIn.h"

#include <CoreFoundation/CoreFoundation.h>
#include <QString>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <sys/sysctl.h>

using namespace tessivo;
using Object = StandIn::Object;
using Kind = Object::Kind;

namespace {

StandIn& mac() {
    return StandIn::shared();
}

Object* typed(const void* object, Kind kind, const char* call) {
    Object* found = mac().alive(object, call);
    if (found->kind != kind) StandIn::fail(std::string(call) + " was given " + found->made);
    return found;
}

/// Given to the program as what a Create or Copy function makes.
template <class Ref>
Ref created(Object* object) {
    return reinterpret_cast<Ref>(mac().own(object));
}

std::string utf8(const void* string, const char* call) {
    return QString::fromStdU16String(typed(string, Kind::string, call)->text).toStdString();
}

std::pair<std::string, std::string> place(CFStringRef application, CFStringRef key) {
    return {utf8(application, "CFPreferences"), utf8(key, "CFPreferences")};
}

/// One character at a time as UTF-8; a lone half of a pair is the loss byte.
std::string character(const std::u16string& text, std::size_t& at, UInt8 lossByte) {
    const char16_t unit = text[at++];
    const auto isHigh = [](char16_t c) { return c >= 0xd800 && c < 0xdc00; };
    const auto isLow = [](char16_t c) { return c >= 0xdc00 && c < 0xe000; };
    if (isHigh(unit) && at < text.size() && isLow(text[at]))
        return QString::fromStdU16String({unit, text[at++]}).toStdString();
    if (isHigh(unit) || isLow(unit)) return std::string(1, char(lossByte));
    return QString(QChar(unit)).toStdString();
}

} // namespace

CFStringRef standInConstant(const char* text) {
    return reinterpret_cast<CFStringRef>(mac().constant(text));
}

CFTypeRef CFRetain(CFTypeRef object) {
    return mac().own(mac().alive(object, "CFRetain"));
}

void CFRelease(CFTypeRef object) {
    Object* released = mac().alive(object, "CFRelease");
    if (released->isConstant) return;
    if (released->owned <= 0)
        StandIn::fail("CFRelease was given " + released->made + ", which isn't the program's");
    mac().disown(released);
}

CFTypeID CFGetTypeID(CFTypeRef object) {
    return CFTypeID(mac().alive(object, "CFGetTypeID")->kind);
}

#define TYPE_ID(type, kind)                                                                                  \
    CFTypeID CF##type##GetTypeID() {                                                                         \
        return CFTypeID(Kind::kind);                                                                         \
    }
TYPE_ID(String, string)
TYPE_ID(Number, number)
TYPE_ID(Boolean, boolean)
TYPE_ID(Data, data)
TYPE_ID(Array, array)
TYPE_ID(Dictionary, dictionary)

CFIndex CFStringGetLength(CFStringRef string) {
    return CFIndex(typed(string, Kind::string, "CFStringGetLength")->text.size());
}

CFStringRef CFStringCreateWithBytes(CFAllocatorRef, const UInt8* bytes, CFIndex count, CFStringEncoding,
                                    Boolean) {
    if (!mac().enters("CFStringCreateWithBytes")) return nullptr;
    const std::string text(reinterpret_cast<const char*>(bytes), std::size_t(count));
    if (!QString::fromStdString(text).toStdString().compare(text)) {
        Object* made = mac().make(Kind::string, "the text \"" + text + "\" of CFStringCreateWithBytes");
        made->text = QString::fromStdString(text).toStdU16String();
        return created<CFStringRef>(made);
    }
    return nullptr; // no valid UTF-8
}

CFIndex CFStringGetBytes(CFStringRef string, CFRange range, CFStringEncoding, UInt8 lossByte, Boolean,
                         UInt8* buffer, CFIndex room, CFIndex* used) {
    const auto whole = typed(string, Kind::string, "CFStringGetBytes")->text;
    const auto text = whole.substr(std::size_t(range.location), std::size_t(range.length));
    std::size_t at = 0;
    *used = 0;
    while (at < text.size()) {
        const std::size_t start = at;
        const std::string bytes = character(text, at, lossByte);
        if (buffer && *used + CFIndex(bytes.size()) > room) return CFIndex(start);
        if (buffer) std::memcpy(buffer + *used, bytes.data(), bytes.size());
        *used += CFIndex(bytes.size());
    }
    return CFIndex(at);
}

Boolean CFNumberIsFloatType(CFNumberRef number) {
    return typed(number, Kind::number, "CFNumberIsFloatType")->isReal;
}

Boolean CFNumberGetValue(CFNumberRef number, CFNumberType type, void* value) {
    const Object* found = typed(number, Kind::number, "CFNumberGetValue");
    if (type == kCFNumberDoubleType) {
        const double real = found->isReal ? found->real : double(found->whole);
        std::memcpy(value, &real, sizeof real);
        return true;
    }
    const std::int64_t whole = found->isReal ? std::int64_t(found->real) : found->whole;
    const auto narrow = std::int32_t(whole);
    if (type == kCFNumberSInt32Type)
        std::memcpy(value, &narrow, sizeof narrow);
    else
        std::memcpy(value, &whole, sizeof whole);
    return !found->isWide && !found->isReal && (type == kCFNumberSInt64Type || narrow == whole);
}

Boolean CFBooleanGetValue(CFBooleanRef boolean) {
    return typed(boolean, Kind::boolean, "CFBooleanGetValue")->whole != 0;
}

CFDataRef CFDataCreate(CFAllocatorRef, const UInt8* bytes, CFIndex count) {
    if (!mac().enters("CFDataCreate")) return nullptr;
    Object* made = mac().make(Kind::data, "the data of CFDataCreate");
    made->bytes.assign(reinterpret_cast<const char*>(bytes), std::size_t(count));
    return created<CFDataRef>(made);
}

CFIndex CFDataGetLength(CFDataRef data) {
    return CFIndex(typed(data, Kind::data, "CFDataGetLength")->bytes.size());
}

const UInt8* CFDataGetBytePtr(CFDataRef data) {
    return reinterpret_cast<const UInt8*>(typed(data, Kind::data, "CFDataGetBytePtr")->bytes.data());
}

CFIndex CFArrayGetCount(CFArrayRef array) {
    return CFIndex(typed(array, Kind::array, "CFArrayGetCount")->elements.size());
}

const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index) {
    const auto& elements = typed(array, Kind::array, "CFArrayGetValueAtIndex")->elements;
    if (index < 0 || std::size_t(index) >= elements.size()) StandIn::fail("an index past a list's end");
    return elements[std::size_t(index)];
}

void CFDictionaryApplyFunction(CFDictionaryRef dictionary, CFDictionaryApplierFunction function,
                               void* context) {
    const auto& elements = typed(dictionary, Kind::dictionary, "CFDictionaryApplyFunction")->elements;
    for (std::size_t i = 0; i + 1 < elements.size(); i += 2)
        function(elements[i], elements[i + 1], context);
}

CFURLRef CFURLCreateWithFileSystemPath(CFAllocatorRef, CFStringRef path, CFURLPathStyle, Boolean) {
    if (!mac().enters("CFURLCreateWithFileSystemPath")) return nullptr;
    Object* made = mac().make(Kind::url, "the address of CFURLCreateWithFileSystemPath");
    made->text = typed(path, Kind::string, "CFURLCreateWithFileSystemPath")->text;
    return created<CFURLRef>(made);
}

Boolean CFURLCopyResourcePropertyForKey(CFURLRef url, CFStringRef key, void* value, CFErrorRef*) {
    const bool isRoot = typed(url, Kind::url, "CFURLCopyResourcePropertyForKey")->text == u"/";
    if (!mac().enters("CFURLCopyResourcePropertyForKey")) return false; // the value stays as it was
    if (!isRoot || utf8(key, "CFURLCopyResourcePropertyForKey") != "NSURLVolumeTotalCapacityKey")
        return false;
    *static_cast<CFTypeRef*>(value) = mac().capacity ? mac().own(mac().capacity) : nullptr;
    return true;
}

CFPropertyListRef CFPreferencesCopyValue(CFStringRef key, CFStringRef application, CFStringRef, CFStringRef) {
    if (!mac().enters("CFPreferencesCopyValue")) return nullptr;
    const auto found = mac().preferences.find(place(application, key));
    return found == mac().preferences.end() ? nullptr : mac().own(found->second);
}

void CFPreferencesSetValue(CFStringRef key, CFPropertyListRef value, CFStringRef application, CFStringRef,
                           CFStringRef) {
    const auto at = place(application, key);
    if (!value) {
        mac().preferences.erase(at);
        return;
    }
    Object* kept = mac().alive(value, "CFPreferencesSetValue");
    ++kept->kept;
    mac().preferences[at] = kept;
}

Boolean CFPreferencesSynchronize(CFStringRef, CFStringRef, CFStringRef) {
    if (!mac().enters("CFPreferencesSynchronize")) return false;
    mac().storedPreferences = mac().preferences;
    return true;
}

int sysctlbyname(const char* name, void* value, std::size_t* size, void*, std::size_t) {
    if (!mac().enters("sysctlbyname")) return errno = EIO, -1;
    const auto found = mac().sysctl.find(name);
    if (found == mac().sysctl.end()) return errno = ENOENT, -1;
    const std::string& bytes = found->second;
    const std::size_t room = value ? *size : 0;
    if (value) std::memcpy(value, bytes.data(), std::min(room, bytes.size()));
    *size = bytes.size();
    if (value && room < bytes.size()) return errno = ENOMEM, -1;
    return 0;
}

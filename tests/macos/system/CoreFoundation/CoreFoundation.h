#pragma once

#include <cstddef>
#include <cstdint>

/// The part of the system's object interface that `platform/macos` uses, for tests on other systems. What
/// stands behind it counts references; see StandIn.h.

using UInt8 = std::uint8_t;
using UInt16 = std::uint16_t;
using UInt32 = std::uint32_t;
using SInt32 = std::int32_t;
using Boolean = unsigned char;
using OSStatus = SInt32;
using OSType = UInt32;
using UniChar = UInt16;
constexpr OSStatus noErr = 0;

using CFIndex = long;
using CFTypeID = unsigned long;
using CFTypeRef = const void*;
using CFPropertyListRef = CFTypeRef;
using CFAllocatorRef = const struct __CFAllocator*;
using CFStringRef = const struct __CFString*;
using CFNumberRef = const struct __CFNumber*;
using CFBooleanRef = const struct __CFBoolean*;
using CFDataRef = const struct __CFData*;
using CFArrayRef = const struct __CFArray*;
using CFDictionaryRef = const struct __CFDictionary*;
using CFMutableDictionaryRef = struct __CFDictionary*;
using CFURLRef = const struct __CFURL*;
using CFErrorRef = struct __CFError*;
using CFBundleRef = struct __CFBundle*;
using CFLocaleRef = const struct __CFLocale*;

struct CFRange {
    CFIndex location;
    CFIndex length;
};
inline CFRange CFRangeMake(CFIndex location, CFIndex length) {
    return {location, length};
}

enum CFNumberType { kCFNumberSInt32Type = 3, kCFNumberSInt64Type = 4, kCFNumberDoubleType = 13 };
using CFStringEncoding = UInt32;
enum CFURLPathStyle { kCFURLPOSIXPathStyle = 0 };
constexpr CFStringEncoding kCFStringEncodingUTF8 = 0x08000100;

inline constexpr CFAllocatorRef kCFAllocatorDefault = nullptr;
CFStringRef standInConstant(const char* text);
#define CFSTR(text) standInConstant("" text "")
#define kCFURLVolumeTotalCapacityKey CFSTR("NSURLVolumeTotalCapacityKey")
#define kCFPreferencesCurrentUser CFSTR("kCFPreferencesCurrentUser")
#define kCFPreferencesAnyHost CFSTR("kCFPreferencesAnyHost")

CFTypeRef CFRetain(CFTypeRef object);
void CFRelease(CFTypeRef object);
CFTypeID CFGetTypeID(CFTypeRef object);

CFTypeID CFStringGetTypeID();
CFIndex CFStringGetLength(CFStringRef string);
CFStringRef CFStringCreateWithBytes(CFAllocatorRef, const UInt8* bytes, CFIndex count, CFStringEncoding,
                                    Boolean);
CFIndex CFStringGetBytes(CFStringRef string, CFRange range, CFStringEncoding, UInt8 lossByte, Boolean,
                         UInt8* buffer, CFIndex room, CFIndex* used);

CFTypeID CFNumberGetTypeID();
Boolean CFNumberIsFloatType(CFNumberRef number);
Boolean CFNumberGetValue(CFNumberRef number, CFNumberType type, void* value);

CFTypeID CFBooleanGetTypeID();
Boolean CFBooleanGetValue(CFBooleanRef boolean);

CFTypeID CFDataGetTypeID();
CFDataRef CFDataCreate(CFAllocatorRef, const UInt8* bytes, CFIndex count);
CFIndex CFDataGetLength(CFDataRef data);
const UInt8* CFDataGetBytePtr(CFDataRef data);

struct CFArrayCallBacks {};
inline constexpr CFArrayCallBacks kCFTypeArrayCallBacks;
CFTypeID CFArrayGetTypeID();
CFArrayRef CFArrayCreate(CFAllocatorRef, const void** values, CFIndex count, const CFArrayCallBacks*);
CFIndex CFArrayGetCount(CFArrayRef array);
const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index);

CFTypeID CFDictionaryGetTypeID();
using CFDictionaryApplierFunction = void (*)(const void* key, const void* value, void* context);
void CFDictionaryApplyFunction(CFDictionaryRef dictionary, CFDictionaryApplierFunction function,
                               void* context);

CFURLRef CFURLCreateWithFileSystemPath(CFAllocatorRef, CFStringRef path, CFURLPathStyle, Boolean isDirectory);
Boolean CFURLCopyResourcePropertyForKey(CFURLRef url, CFStringRef key, void* value, CFErrorRef* error);
Boolean CFURLGetFileSystemRepresentation(CFURLRef url, Boolean isWhole, UInt8* buffer, CFIndex room);

CFBundleRef CFBundleGetMainBundle();
CFURLRef CFBundleCopyResourceURL(CFBundleRef bundle, CFStringRef name, CFStringRef type, CFStringRef folder);
CFArrayRef CFBundleCopyLocalizationsForPreferences(CFArrayRef offered, CFArrayRef preferred);
CFLocaleRef CFLocaleCopyCurrent();
CFStringRef CFLocaleGetIdentifier(CFLocaleRef locale);

CFPropertyListRef CFPreferencesCopyValue(CFStringRef key, CFStringRef application, CFStringRef user,
                                         CFStringRef host);
void CFPreferencesSetValue(CFStringRef key, CFPropertyListRef value, CFStringRef application,
                           CFStringRef user, CFStringRef host);
Boolean CFPreferencesSynchronize(CFStringRef application, CFStringRef user, CFStringRef host);

#pragma once

#include "kit/support/Property.h"

#include <CoreFoundation/CoreFoundation.h>

/// The system's property objects as plain values. The objects stay the caller's. Any thread.
namespace tessivo::PropertyValue {

/// Levels of lists and maps that are read; what lies deeper is absent.
inline constexpr int greatestDepth = 64;

/// The whole text as UTF-8. A code unit that makes no character becomes "?".
std::string text(CFStringRef string);

/// Nothing for null and for what has no plain form: data, dates and other classes. A whole number keeps its
/// 64 bits, so an unsigned one from 2 to the 63rd upward is negative.
std::optional<Property> value(CFTypeRef object);

/// Nothing for null and for what is no dictionary. Keys that aren't texts are passed over, and so are keys
/// whose value has no plain form.
std::optional<PropertyMap> map(CFTypeRef object);

} // namespace tessivo::PropertyValue

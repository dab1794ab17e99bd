#pragma once

#include <string_view>
#include <unicode/locid.h>

namespace tessivo {

/// The user's locale for dates and numbers. A system without one speaks US English with twists of its own
/// (ICU's "en_US_POSIX"); people get plain US English. For the .cpp files of this folder alone.
inline icu::Locale userLocale() {
    const icu::Locale& locale = icu::Locale::getDefault();
    const bool isNone = std::string_view(locale.getVariant()) == "POSIX" || *locale.getLanguage() == '\0';
    return isNone ? icu::Locale::getUS() : locale;
}

} // namespace tessivo

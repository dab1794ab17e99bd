#pragma once

#include "kit/support/UserRegion.h"

#include <cstdlib>
#include <string_view>
#include <unicode/locid.h>

namespace tessivo {

/// The user's locale for one kind of format: the user's region, else what the environment has for
/// "LC_NUMERIC" or "LC_TIME": desktops let people set formats apart from the language. A system without a
/// locale gives plain US English. For the .cpp files of this folder alone.
inline icu::Locale userLocale(const char* category) {
    if (const std::string& region = UserRegion::identifier(); !region.empty())
        return icu::Locale::createCanonical(region.c_str());
    for (const char* name : {"LC_ALL", category, "LANG"}) {
        const char* value = std::getenv(name);
        if (!value || !*value) continue;
        const std::string_view text = value;
        const std::string_view language = text.substr(0, text.find_first_of(".@"));
        if (language == "C" || language == "POSIX") break;
        return icu::Locale::createCanonical(value);
    }
    return icu::Locale::getUS();
}

} // namespace tessivo

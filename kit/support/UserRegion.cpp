#include "kit/support/UserRegion.h"

#include <unicode/locid.h>
#include <utility>

namespace tessivo::UserRegion {

namespace {

std::string& stored() {
    static std::string identifier;
    return identifier;
}

} // namespace

void set(std::string identifier) {
    stored() = std::move(identifier);
    UErrorCode status = U_ZERO_ERROR; // what ICU can't take leaves its default as it was
    if (!stored().empty()) icu::Locale::setDefault(icu::Locale::createCanonical(stored().c_str()), status);
}

const std::string& identifier() {
    return stored();
}

} // namespace tessivo::UserRegion

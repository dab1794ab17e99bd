#include "kit/support/UserRegion.h"

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
}

const std::string& identifier() {
    return stored();
}

} // namespace tessivo::UserRegion

#pragma once

#include "kit/support/Describe.h"

#include <set>
#include <string>

namespace tessivo {

/// What tells one Mac from its twin where its serial number can't be read, by kind. An empty set is a kind
/// that isn't known. They name a person's machine: they are kept in that person's defaults and nowhere else.
struct HardwareKeys {
    std::set<std::string> ethernet; ///< permanent addresses of built-in wired ports
    std::set<std::string> wifi;     ///< permanent addresses of built-in Wi-Fi
    std::set<std::string> drives;   ///< worldwide names of internal drives

    bool operator==(const HardwareKeys&) const = default;
};
BOOST_DESCRIBE_STRUCT(HardwareKeys, (), (ethernet, wifi, drives))

} // namespace tessivo

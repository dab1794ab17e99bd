#include "kit/support/Property.h"

namespace tessivo {

namespace {

const Property* find(const PropertyMap& map, const std::string& key) {
    const auto entry = map.find(key);
    return entry == map.end() ? nullptr : &entry->second;
}

} // namespace

std::optional<std::string> text(const PropertyMap& map, const std::string& key) {
    const Property* property = find(map, key);
    if (!property) return std::nullopt;
    if (const auto* text = std::get_if<std::string>(&property->value)) return *text;
    return std::nullopt;
}

std::optional<std::int64_t> integer(const PropertyMap& map, const std::string& key) {
    const Property* property = find(map, key);
    if (!property) return std::nullopt;
    if (const auto* number = std::get_if<std::int64_t>(&property->value)) return *number;
    if (const auto* number = std::get_if<double>(&property->value)) {
        // 2^63 itself has no place in 64 signed bits; NaN fails both comparisons.
        if (*number > -9223372036854777856.0 && *number < 9223372036854775808.0) return std::int64_t(*number);
    }
    return std::nullopt;
}

std::optional<bool> boolean(const PropertyMap& map, const std::string& key) {
    const Property* property = find(map, key);
    if (!property) return std::nullopt;
    if (const auto* flag = std::get_if<bool>(&property->value)) return *flag;
    if (const auto* number = std::get_if<std::int64_t>(&property->value)) return *number != 0;
    if (const auto* number = std::get_if<double>(&property->value)) return *number != 0;
    return std::nullopt;
}

} // namespace tessivo

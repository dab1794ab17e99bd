#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tessivo {

struct Property;

/// A raw property map as a system's registry gives it: key to value, nothing interpreted.
using PropertyMap = std::map<std::string, Property>;
using PropertyList = std::vector<Property>;

/// One raw value. A number is a whole 64-bit signed one or a double; a boolean is a type of its own.
struct Property {
    std::variant<std::monostate, bool, std::int64_t, double, std::string, PropertyMap, PropertyList> value;

    Property() = default;
    Property(bool flag) : value(flag) {}
    Property(std::int64_t number) : value(number) {}
    Property(int number) : value(std::int64_t{number}) {}
    Property(double number) : value(number) {}
    Property(std::string text) : value(std::move(text)) {}
    Property(const char* text) : value(std::string(text)) {}
    Property(PropertyMap map) : value(std::move(map)) {}
    Property(PropertyList list) : value(std::move(list)) {}

    bool operator==(const Property&) const = default;
};

/// Typed looks into a map. A missing key and a value of another type both give nothing.
/// `integer` takes a whole number, or a double cut toward zero where it fits 64 bits.
/// `boolean` takes a boolean, or a number that is read as true when it isn't zero.
std::optional<std::string> text(const PropertyMap& map, const std::string& key);
std::optional<std::int64_t> integer(const PropertyMap& map, const std::string& key);
std::optional<bool> boolean(const PropertyMap& map, const std::string& key);

} // namespace tessivo

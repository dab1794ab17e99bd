#include "kit/support/PropertyJson.h"

#include <charconv>
#include <cmath>

namespace tessivo {

namespace {

Property readNumber(const Json::Value& value, const Json::Path& path) {
    const std::string_view token = value.text;
    if (token.find_first_of(".eE") == std::string_view::npos) {
        std::int64_t whole = 0;
        if (std::from_chars(token.data(), token.data() + token.size(), whole).ec == std::errc()) return whole;
    }
    return Json::readDouble(value, path);
}

} // namespace

Property Json::Form<Property>::read(const Value& value, const Path& path) {
    switch (value.type) {
    case Value::Type::boolean:
        return readBool(value, path);
    case Value::Type::number:
        return readNumber(value, path);
    case Value::Type::text:
        return std::string(value.text);
    case Value::Type::object:
        return Reader<PropertyMap>::read(value, path, {});
    case Value::Type::list:
        return Reader<PropertyList>::read(value, path, {});
    case Value::Type::null:
        break;
    }
    return {};
}

void Json::Form<Property>::write(Writer& writer, const Property& property) {
    const auto writeOne = [&writer](const auto& value) {
        if constexpr (std::same_as<decltype(value), const std::monostate&>)
            writer.writeNull();
        else if constexpr (std::same_as<decltype(value), const double&>)
            std::isfinite(value) ? writer.writeFraction(value) : writer.writeNull();
        else
            writer.write(value);
    };
    std::visit(writeOne, property.value);
}

PropertyMap Json::Reader<PropertyMap>::read(const Value& value, const Path& path, DateForm) {
    PropertyMap map;
    for (const Value& field : readObject(value, path))
        map.insert_or_assign(map.end(), std::string(field.key),
                             Form<Property>::read(field, Path(path, field.key))); // most are sorted
    return map;
}

PropertyMap parsePropertyMap(std::string_view json) {
    return Json::read<PropertyMap>(json, Json::DateForm::iso8601);
}

std::string prettyText(const PropertyMap& map) {
    return Json::write(map, Json::Layout::prettySorted, Json::DateForm::iso8601);
}

} // namespace tessivo

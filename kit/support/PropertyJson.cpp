#include "kit/support/PropertyJson.h"

#include "kit/support/JsonReader.h"
#include "kit/support/JsonWriter.h"

#include <charconv>
#include <cmath>

namespace tessivo {

namespace {

using Json::Value;

PropertyMap readMap(const Value& object, const Json::Path& path);

Property readNumber(const Value& value, const Json::Path& path) {
    const std::string_view token = value.text;
    if (token.find_first_of(".eE") == std::string_view::npos) {
        std::int64_t whole = 0;
        if (std::from_chars(token.data(), token.data() + token.size(), whole).ec == std::errc()) return whole;
    }
    return Json::readDouble(value, path);
}

Property readProperty(const Value& value, const Json::Path& path) {
    switch (value.type) {
    case Value::Type::boolean:
        return Json::readBool(value, path);
    case Value::Type::number:
        return readNumber(value, path);
    case Value::Type::text:
        return std::string(value.text);
    case Value::Type::object:
        return readMap(value, path);
    case Value::Type::list: {
        PropertyList list;
        for (const Value& entry : value)
            list.push_back(readProperty(entry, Json::Path(path, list.size())));
        return list;
    }
    case Value::Type::null:
        break;
    }
    return {};
}

PropertyMap readMap(const Value& object, const Json::Path& path) {
    PropertyMap map;
    for (const Value& field : object)
        map.insert_or_assign(std::string(field.key), readProperty(field, Json::Path(path, field.key)));
    return map;
}

void write(Json::Writer& writer, const Property& property);

void write(Json::Writer& writer, const PropertyMap& map) {
    writer.open('{');
    for (const auto& [key, value] : map) {
        writer.writeKey(key);
        write(writer, value);
    }
    writer.close('}');
}

void write(Json::Writer& writer, const Property& property) {
    if (const auto* map = std::get_if<PropertyMap>(&property.value)) {
        write(writer, *map);
    } else if (const auto* list = std::get_if<PropertyList>(&property.value)) {
        writer.open('[');
        for (const Property& entry : *list) {
            writer.separate();
            write(writer, entry);
        }
        writer.close(']');
    } else if (const auto* number = std::get_if<double>(&property.value)) {
        if (std::isfinite(*number))
            writer.writeFraction(*number);
        else
            writer.writeNull();
    } else if (const auto* text = std::get_if<std::string>(&property.value)) {
        writer.write(*text);
    } else if (const auto* whole = std::get_if<std::int64_t>(&property.value)) {
        writer.write(*whole);
    } else if (const auto* flag = std::get_if<bool>(&property.value)) {
        writer.write(*flag);
    } else {
        writer.writeNull();
    }
}

} // namespace

PropertyMap parsePropertyMap(std::string_view json) {
    const Json::Document document(json);
    return readMap(document.root(), {});
}

std::string prettyText(const PropertyMap& map) {
    Json::Writer writer(Json::Layout::prettySorted, Json::DateForm::iso8601);
    write(writer, map);
    return writer.take() + '\n';
}

} // namespace tessivo

#include "kit/support/PropertyJson.h"

#include "kit/support/JsonReader.h"
#include "kit/support/JsonWriter.h"

namespace tessivo {

namespace {

using simdjson::dom::element_type;

PropertyMap readMap(simdjson::dom::object object, const Json::Path& path);

Property readProperty(simdjson::dom::element element, const Json::Path& path) {
    switch (element.type()) {
    case element_type::BOOL:
        return bool(element);
    case element_type::INT64:
        return std::int64_t(element);
    case element_type::UINT64:
        return double(std::uint64_t(element));
    case element_type::DOUBLE:
        return double(element);
    case element_type::STRING:
        return std::string(Json::readText(element, path));
    case element_type::OBJECT:
        return readMap(element, path);
    case element_type::ARRAY: {
        PropertyList list;
        for (const auto entry : simdjson::dom::array(element))
            list.push_back(readProperty(entry, Json::Path(path, list.size())));
        return list;
    }
    case element_type::NULL_VALUE:
        break;
    }
    return {};
}

PropertyMap readMap(simdjson::dom::object object, const Json::Path& path) {
    PropertyMap map;
    for (const auto field : object)
        map.insert_or_assign(std::string(field.key), readProperty(field.value, Json::Path(path, field.key)));
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
    const Json::Document document(json, Json::Document::HugeNumbers::refuse);
    return readMap(Json::readObject(document.root(), {}), {});
}

std::string prettyText(const PropertyMap& map) {
    Json::Writer writer(Json::Layout::prettySorted, Json::DateForm::iso8601);
    write(writer, map);
    return writer.take() + '\n';
}

} // namespace tessivo

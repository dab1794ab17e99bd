#pragma once

#include "kit/support/JsonReader.h"
#include "kit/support/JsonWriter.h"
#include "kit/support/Property.h"

namespace tessivo {

/// A property map from the JSON object that holds it. null is an empty value; a whole number beyond 64
/// signed bits becomes a double; of a key that stands twice the last one counts. Throws DecodingError for
/// anything that isn't one JSON object, and for a number beyond all doubles.
PropertyMap parsePropertyMap(std::string_view json);

/// The map as pretty JSON with sorted keys, which reads back as an equal map. A double that isn't finite,
/// for which JSON has no word, becomes null.
std::string prettyText(const PropertyMap& map);

/// A raw value, and with the next a raw map, as a member of a described record.
template <>
struct Json::Form<Property> {
    static Property read(const Value& value, const Path& path);
    static void write(Writer& writer, const Property& property);
};

/// Unlike in other maps, null is a value here.
template <>
struct Json::Reader<PropertyMap> {
    static PropertyMap read(const Value& value, const Path& path, DateForm form);
};

} // namespace tessivo

#include "kit/support/Uuid.h"

#include "kit/support/Text.h"

#include <algorithm>
#include <boost/uuid/random_generator.hpp>
#include <boost/uuid/string_generator.hpp>
#include <boost/uuid/uuid_io.hpp>

namespace tessivo {

namespace {

Uuid from(const boost::uuids::uuid& made) {
    Uuid uuid;
    std::copy(made.begin(), made.end(), uuid.bytes.begin());
    return uuid;
}

} // namespace

Uuid Uuid::random() {
    return from(boost::uuids::random_generator()());
}

std::optional<Uuid> Uuid::parse(std::string_view text) try {
    // The library takes other forms too, with braces and without dashes; they are of other lengths.
    if (text.size() != 36) return std::nullopt;
    return from(boost::uuids::string_generator()(text.begin(), text.end()));
} catch (const std::runtime_error&) {
    return std::nullopt;
}

std::string Uuid::text() const {
    boost::uuids::uuid uuid;
    std::copy(bytes.begin(), bytes.end(), uuid.begin());
    return Text::uppercased(boost::uuids::to_string(uuid));
}

} // namespace tessivo

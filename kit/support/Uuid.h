#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tessivo {

/// A universally unique identifier: the identity of a report. Plain value, any thread.
struct Uuid {
    std::array<std::uint8_t, 16> bytes{};

    /// A fresh random one (version 4).
    static Uuid random();

    /// From the canonical 36-character form, in either case; anything else is nothing.
    static std::optional<Uuid> parse(std::string_view text);

    /// The canonical form in upper case: "6F9619FF-8B86-D011-B42D-00CF4FC964FF".
    std::string text() const;

    auto operator<=>(const Uuid&) const = default;
};

} // namespace tessivo

#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>

namespace tessivo {

/// A moment: seconds since 2001-01-01 00:00:00 UTC, with fraction. It is stored as this number,
/// so that a date survives any number of saves to the last bit. Plain value, any thread.
struct Date {
    double seconds = 0;

    /// The current time of the system's clock.
    static Date now();

    /// Reads ISO 8601 text with a time zone mark and whole seconds, as in "2026-03-05T16:07:09Z" or
    /// "2026-03-05T16:07:09+01:00". Anything else, an impossible calendar day included, is nothing.
    static std::optional<Date> fromISO8601(std::string_view text);

    /// "2026-03-05T16:07:09Z"; a fraction of a second is dropped (toward the past).
    std::string iso8601() const;

    /// The date by an ICU pattern such as "MMMM d, yyyy 'at' h:mm a zzz", in a locale such as
    /// "en_US_POSIX" and a zone such as "America/Los_Angeles" (empty: the system's own).
    std::string formatted(const std::string& pattern, const std::string& locale,
                          const std::string& timeZone) const;

    /// The long form without a time: "March 5, 2026", "5 de marzo de 2026". Zone as above.
    std::string longText(const std::string& locale, const std::string& timeZone = {}) const;

    /// Abbreviated date and short time in the user's locale and zone: "Mar 5, 2026, 4:07 PM".
    std::string shortText() const;

    auto operator<=>(const Date&) const = default;
};

/// The identifier of the system's current time zone, such as "Europe/Madrid".
std::string systemTimeZone();

/// Whether the time zone data holds this name; a bare offset such as "GMT+5" is none.
bool isTimeZone(const std::string& name);

} // namespace tessivo

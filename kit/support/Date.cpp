#include "kit/support/Date.h"

#include "kit/support/Text.h"
#include "kit/support/UserLocale.h"

#include <chrono>
#include <cmath>
#include <cstdint>
#include <memory>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>
#include <unordered_map>

namespace tessivo {

namespace {

/// 2001-01-01 00:00:00 UTC in seconds since 1970.
constexpr std::int64_t reference = 978307200;

icu::UnicodeString unicode(const std::string& text) {
    return icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), std::int32_t(text.size())));
}

/// `count` decimal digits at the front of the text, taken off it; -1 where they aren't.
int takeNumber(std::string_view& text, std::size_t count) {
    if (text.size() < count) return -1;
    int value = 0;
    for (std::size_t i = 0; i < count; ++i) {
        if (text[i] < '0' || text[i] > '9') return -1;
        value = value * 10 + (text[i] - '0');
    }
    text.remove_prefix(count);
    return value;
}

bool takeMark(std::string_view& text, char mark) {
    if (text.empty() || text.front() != mark) return false;
    text.remove_prefix(1);
    return true;
}

/// Seconds east of UTC of "Z" or "+01:00" as the whole rest of the text.
std::optional<int> takeOffset(std::string_view& text) {
    if (takeMark(text, 'Z')) return 0;
    if (text.empty() || (text.front() != '+' && text.front() != '-')) return std::nullopt;
    const int sign = text.front() == '-' ? -1 : 1;
    text.remove_prefix(1);
    const int hours = takeNumber(text, 2);
    if (hours < 0 || hours > 23 || !takeMark(text, ':')) return std::nullopt;
    const int minutes = takeNumber(text, 2);
    if (minutes < 0 || minutes > 59) return std::nullopt;
    return sign * (hours * 3600 + minutes * 60);
}

std::unique_ptr<icu::TimeZone> zoneNamed(const std::string& name) {
    return std::unique_ptr<icu::TimeZone>(
        icu::TimeZone::createTimeZone(unicode(name.empty() ? systemTimeZone() : name)));
}

enum class Style { pattern, longDate, mediumDateShortTime };

std::unique_ptr<icu::DateFormat> makeFormat(Style style, const std::string& pattern,
                                            const icu::Locale& locale) {
    if (style == Style::pattern) {
        UErrorCode status = U_ZERO_ERROR;
        auto format = std::make_unique<icu::SimpleDateFormat>(unicode(pattern), locale, status);
        return U_SUCCESS(status) ? std::move(format) : nullptr;
    }
    return std::unique_ptr<icu::DateFormat>(
        style == Style::longDate ? icu::DateFormat::createDateInstance(icu::DateFormat::kLong, locale)
                                 : icu::DateFormat::createDateTimeInstance(icu::DateFormat::kMedium,
                                                                           icu::DateFormat::kShort, locale));
}

/// Making a format costs a hundred times its use, so each thread keeps the few that it needs.
std::string format(Date date, Style style, const std::string& pattern, const icu::Locale& locale,
                   const std::string& timeZone) {
    if (!std::isfinite(date.seconds)) return {};
    static thread_local std::unordered_map<std::string, std::unique_ptr<icu::DateFormat>> formats;
    const std::string zone = timeZone.empty() ? systemTimeZone() : timeZone;
    const std::string key =
        std::to_string(int(style)) + '\n' + pattern + '\n' + locale.getName() + '\n' + zone;
    auto found = formats.find(key);
    if (found == formats.end()) {
        if (formats.size() >= 64) formats.clear();
        auto made = makeFormat(style, pattern, locale);
        if (!made) return {};
        made->adoptTimeZone(zoneNamed(zone).release());
        found = formats.emplace(key, std::move(made)).first;
    }
    icu::UnicodeString text;
    found->second->format((date.seconds + double(reference)) * 1000.0, text);
    std::string bytes;
    text.toUTF8String(bytes);
    return bytes;
}

} // namespace

Date Date::now() {
    const auto since = std::chrono::system_clock::now().time_since_epoch();
    return {
        double(std::chrono::duration_cast<std::chrono::microseconds>(since).count() - reference * 1'000'000) /
        1e6};
}

std::optional<Date> Date::fromISO8601(std::string_view text) {
    const int year = takeNumber(text, 4);
    if (year < 0 || !takeMark(text, '-')) return std::nullopt;
    const int month = takeNumber(text, 2);
    if (month < 0 || !takeMark(text, '-')) return std::nullopt;
    const int day = takeNumber(text, 2);
    const std::chrono::year_month_day calendar{std::chrono::year(year), std::chrono::month(unsigned(month)),
                                               std::chrono::day(unsigned(std::max(day, 0)))};
    if (!calendar.ok() || !takeMark(text, 'T')) return std::nullopt;
    const int hour = takeNumber(text, 2);
    if (hour < 0 || hour > 23 || !takeMark(text, ':')) return std::nullopt;
    const int minute = takeNumber(text, 2);
    if (minute < 0 || minute > 59 || !takeMark(text, ':')) return std::nullopt;
    const int second = takeNumber(text, 2);
    if (second < 0 || second > 59) return std::nullopt;
    const auto offset = takeOffset(text);
    if (!offset || !text.empty()) return std::nullopt;
    const std::int64_t days = std::chrono::sys_days(calendar).time_since_epoch().count();
    const Date date{double(days * 86400 + hour * 3600 + minute * 60 + second - *offset - reference)};
    // At either end of the years the offset can lead to a moment that couldn't be written again.
    const bool isAtAnEnd = year == 0 || year == 9999;
    return isAtAnEnd && date.iso8601().empty() ? std::nullopt : std::optional(date);
}

std::string Date::iso8601() const {
    // Beyond these the calendar arithmetic would overflow; such a date has no text.
    if (!(std::abs(seconds) < 1e12)) return {};
    const std::chrono::sys_seconds moment{
        std::chrono::seconds(std::int64_t(std::floor(seconds)) + reference)};
    const auto day = std::chrono::floor<std::chrono::days>(moment);
    const std::chrono::year_month_day calendar{day};
    const std::chrono::hh_mm_ss time{moment - day};
    const int year = int(calendar.year());
    if (year < 0 || year > 9999) return {};
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02dZ", year, unsigned(calendar.month()),
                  unsigned(calendar.day()), int(time.hours().count()), int(time.minutes().count()),
                  int(time.seconds().count()));
    return text;
}

std::string Date::formatted(const std::string& pattern, const std::string& locale,
                            const std::string& timeZone) const {
    return format(*this, Style::pattern, pattern, icu::Locale(locale.c_str()), timeZone);
}

std::string Date::longText(const std::string& locale, const std::string& timeZone) const {
    return format(*this, Style::longDate, {}, icu::Locale(locale.c_str()), timeZone);
}

std::string Date::shortText() const {
    // The narrow no-break space before AM and PM is missing from many fonts.
    static thread_local const icu::Locale locale = userLocale("LC_TIME");
    return Text::replaced(format(*this, Style::mediumDateShortTime, {}, locale, {}), "\u202F", " ");
}

std::string systemTimeZone() {
    const std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::detectHostTimeZone());
    icu::UnicodeString id;
    if (!zone || *zone == icu::TimeZone::getUnknown()) return "UTC";
    std::string name;
    zone->getID(id).toUTF8String(name);
    return name;
}

bool isTimeZone(const std::string& name) {
    if (name.empty() || name == "Etc/Unknown") return false;
    icu::UnicodeString canonical;
    UErrorCode status = U_ZERO_ERROR;
    UBool isInTheData = false;
    icu::TimeZone::getCanonicalID(unicode(name), canonical, isInTheData, status);
    // "GMT+5" is no name: ICU and the system's TZ variable read it as opposite offsets.
    return U_SUCCESS(status) && isInTheData;
}

} // namespace tessivo

#include "kit/support/Date.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <time.h>

namespace tessivo {
namespace {

TEST(Date, readsISOTextWithWholeSecondsAndAZone) {
    const std::pair<const char*, double> rows[] = {
        {"2001-01-01T00:00:00Z", 0},
        {"2000-12-31T23:59:59Z", -1},
        {"2026-03-05T16:07:09Z", 794419629},
        {"2026-03-05T17:07:09+01:00", 794419629},
        {"2026-03-05T10:37:09-05:30", 794419629},
        {"1970-01-01T00:00:00Z", -978307200},
        {"2024-02-29T00:00:00Z", 730857600},
        {"0000-01-01T00:00:00Z", -63145526400},
        {"9999-12-31T23:59:59Z", 252423993599},
    };
    for (const auto& [text, seconds] : rows) {
        const auto date = Date::fromISO8601(text);
        ASSERT_TRUE(date) << text;
        EXPECT_EQ(date->seconds, seconds) << text;
        if (std::string_view(text).ends_with('Z')) {
            EXPECT_EQ(date->iso8601(), text);
        }
    }
}

TEST(Date, refusesEveryOtherText) {
    for (const char* text : {"",
                             "2026",
                             "2026-03-05",
                             "2026-03-05T16:07:09",
                             "2026-03-05T16:07:09.5Z",
                             "2026-03-05T16:07Z",
                             "2026-03-05 16:07:09Z",
                             "2026-03-05T16:07:09z",
                             "2026-03-05t16:07:09Z",
                             "2026-3-05T16:07:09Z",
                             "2026-02-29T00:00:00Z",
                             "2026-13-01T00:00:00Z",
                             "2026-00-01T00:00:00Z",
                             "2026-01-00T00:00:00Z",
                             "2026-03-05T24:00:00Z",
                             "2026-03-05T16:60:00Z",
                             "2026-03-05T16:07:60Z",
                             "2026-03-05T16:07:09+24:00",
                             "2026-03-05T16:07:09+01",
                             "2026-03-05T16:07:09+0100",
                             "2026-03-05T16:07:09+01:60",
                             "2026-03-05T16:07:09Z ",
                             " 2026-03-05T16:07:09Z",
                             "+2026-03-05T16:07:09Z",
                             "-026-03-05T16:07:09Z",
                             "20260305T160709Z",
                             "2026-03-05T16:07:09UTC",
                             "٢٠٢٦-03-05T16:07:09Z",
                             "0000-01-01T00:00:00+01:00",
                             "9999-12-31T23:59:59-00:01"})
        EXPECT_FALSE(Date::fromISO8601(text)) << text;
}

TEST(Date, aFractionIsDroppedTowardThePast) {
    EXPECT_EQ(Date{0.999}.iso8601(), "2001-01-01T00:00:00Z");
    EXPECT_EQ(Date{-0.001}.iso8601(), "2000-12-31T23:59:59Z");
    for (double seconds : {1e300, -1e300, HUGE_VAL, std::nan(""), 252423993600.0, -63145526401.0})
        EXPECT_EQ(Date{seconds}.iso8601(), "") << seconds;
}

TEST(Date, formatsByPatternLocaleAndZone) {
    const std::string pattern = "MMMM d, yyyy 'at' h:mm a zzz";
    const auto text = [&](const char* iso, const char* zone) {
        return Date::fromISO8601(iso)->formatted(pattern, "en_US_POSIX", zone);
    };
    EXPECT_EQ(text("2026-03-06T00:07:09Z", "America/Los_Angeles"), "March 5, 2026 at 4:07 PM PST");
    EXPECT_EQ(text("2026-07-01T19:00:00Z", "America/Los_Angeles"), "July 1, 2026 at 12:00 PM PDT");
    EXPECT_EQ(text("2026-07-01T07:00:00Z", "America/Los_Angeles"), "July 1, 2026 at 12:00 AM PDT");
    EXPECT_EQ(text("2026-03-05T16:07:09Z", "UTC"), "March 5, 2026 at 4:07 PM UTC");
    EXPECT_EQ(text("2026-03-05T16:07:09Z", "Europe/Madrid"), "March 5, 2026 at 5:07 PM GMT+1");
    EXPECT_EQ(text("2026-03-05T16:07:09Z", "Asia/Kolkata"), "March 5, 2026 at 9:37 PM GMT+5:30");
    EXPECT_EQ(Date{HUGE_VAL}.formatted(pattern, "en_US_POSIX", "UTC"), "");
}

TEST(Date, theLongFormFollowsTheLanguage) {
    const Date date = *Date::fromISO8601("2026-03-05T16:07:09Z");
    EXPECT_EQ(date.longText("en", "UTC"), "March 5, 2026");
    EXPECT_EQ(date.longText("es", "UTC"), "5 de marzo de 2026");
    EXPECT_EQ(date.longText("en", "Pacific/Kiritimati"), "March 6, 2026");
}

TEST(Date, theShortFormIsTheUsersOwnZoneWithPlainBlanks) {
    ::setenv("TZ", "America/Los_Angeles", 1);
    ::tzset();
    EXPECT_EQ(systemTimeZone(), "America/Los_Angeles");
    EXPECT_EQ(Date::fromISO8601("2026-03-06T00:07:09Z")->shortText(), "Mar 5, 2026, 4:07 PM");
}

TEST(Date, knowsZonesByName) {
    for (const char* name : {"UTC", "GMT", "America/Los_Angeles", "Europe/Madrid", "PST8PDT"})
        EXPECT_TRUE(isTimeZone(name)) << name;
    for (const char* name : {"", "Mars/Olympus", "america", "Etc/Unknown", "GMT+5", "UTC-03:30"})
        EXPECT_FALSE(isTimeZone(name)) << name;
}

} // namespace
} // namespace tessivo

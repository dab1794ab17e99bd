#include "kit/support/UserRegion.h"

#include "kit/support/Date.h"
#include "kit/support/Text.h"

#include <gtest/gtest.h>
#include <thread>

using namespace tessivo;

TEST(UserRegion, decidesNumbersAndDatesBeforeTheEnvironmentDoes) {
    struct Row {
        const char* region;
        const char* number;
        const char* date;
    };
    const Row rows[] = {{"de_DE", "41.030", "05.03.2026, 12:00"},
                        {"en_US@calendar=gregorian;currency=EUR", "41,030", "Mar 5, 2026, 12:00 PM"},
                        {"es-ES", "41.030", "5 mar 2026, 12:00"},
                        {"", "41,030", "Mar 5, 2026, 12:00 PM"}}; // the environment's
    const Date date = *Date::fromISO8601("2026-03-05T20:00:00Z");
    for (const Row& row : rows) {
        UserRegion::set(row.region);
        // Each thread keeps its formats.
        std::thread([&] {
            EXPECT_EQ(Text::grouped(41'030), row.number) << row.region;
            EXPECT_EQ(date.shortText(), row.date) << row.region;
        }).join();
    }
}

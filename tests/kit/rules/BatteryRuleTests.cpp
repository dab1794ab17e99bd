#include "kit/rules/Rules.h"
#include "tests/kit/rules/Printed.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

using Source = BatteryReading::Source;

const std::string hint =
    "Open System Settings › Battery and click the i next to Battery Health for Maximum Capacity; "
    "System Information › Hardware › Power shows the cycle count.";

TEST(BatteryRule, aMissingBatteryIsJudgedByTheKindOfMac) {
    const std::string none = "notIncluded: None built in (desktop Macs have no battery)";
    EXPECT_EQ(printed(Rules::battery(std::nullopt, MacKind::laptop)), "notRun: Not read yet");
    EXPECT_EQ(printed(Rules::battery(BatteryReading{}, MacKind::desktop)), none);
    EXPECT_EQ(printed(Rules::battery(BatteryReading{}, MacKind::allInOne)), none);
    EXPECT_EQ(printed(Rules::battery(BatteryReading{}, std::nullopt)),
              "checkByHand: No battery found. Check whether this model has one. | " + hint);
    EXPECT_EQ(printed(Rules::battery(BatteryReading{}, MacKind::laptop)),
              "checkByHand: Couldn't read the battery here. Check by hand. | " + hint);
}

TEST(BatteryRule, eightyPercentIsTheLineAndAWarningWins) {
    const std::string own = " | System Settings › Battery › Battery Health shows Apple's own figure; it can "
                            "differ by a percent or two.";
    const std::string byHand = " | The cycle count and capacity couldn't be read here. " + hint;
    struct Row {
        BatteryReading reading; // present, cycles, design cycles, design, full, condition, source
        std::string expected;
    };
    const std::vector<Row> rows = {
        {{true, 1, 1000, 5000, 4000, "Normal", Source::registry},
         "works: Holds 80% of its charge when new, 1 charge cycle | Maximum capacity: 80% (4,000 mAh of "
         "5,000 mAh "
         "when new) | Charge cycles: 1 (designed for 1,000) | macOS condition: Normal" +
             own},
        {{true, 1204, {}, 5000, 3950, {}, Source::registry},
         "problem: Holds 79% of its charge when new, 1,204 charge cycles: under 80%, so expect shorter "
         "battery life "
         "| Maximum capacity: 79% (3,950 mAh of 5,000 mAh when new) | Charge cycles: 1,204" +
             own},
        {{true, {}, 1000, 5000, 5100, "Service Recommended", Source::registry},
         "problem: macOS says the battery needs attention: Service Recommended | Maximum capacity: 100% "
         "(5,100 mAh "
         "of 5,000 mAh when new) | macOS condition: Service Recommended" +
             own},
        {{true, 0, {}, {}, {}, "Normal", Source::registry},
         "works: macOS condition: Normal, 0 charge cycles | Charge cycles: 0 | macOS condition: Normal" +
             own},
        {{true, {}, {}, {}, {}, "Normal", Source::powerSources},
         "checkByHand: macOS condition: Normal | macOS condition: Normal" + byHand},
        {{true, {}, {}, {}, {}, "Poor", Source::powerSources},
         "problem: macOS says the battery needs attention: Poor | macOS condition: Poor" + byHand},
        {{true, 12, {}, 5000, {}, {}, Source::registry},
         "checkByHand: Battery found, but its health couldn't be read. Check by hand. | Charge cycles: 12" +
             own},
        {{true, {}, {}, {}, {}, {}, Source::powerSources},
         "checkByHand: Battery found, but its health couldn't be read. Check by hand." + byHand},
    };
    for (const Row& row : rows)
        EXPECT_EQ(printed(Rules::battery(row.reading, MacKind::laptop)), row.expected);
}

} // namespace
} // namespace tessivo

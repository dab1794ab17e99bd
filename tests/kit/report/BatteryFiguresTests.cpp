#include "kit/report/BatteryFigures.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

using Number = std::optional<std::int64_t>;

TEST(BatteryFigures, readsAnyLanguagesDigitsAndGrouping) {
    const std::pair<const char*, Number> rows[] = {
        {"0", 0},
        {"1234", 1234},
        {"1,234", 1234},
        {"1.234", 1234},
        {"1 234", 1234},
        {"1\u00A0234", 1234},
        {"1\u202F234", 1234},
        {"1’234", 1234},
        {"12,34,567", 1234567},
        {"١٬٢٣٤", 1234},
        {"۱٬۲۳۴", 1234},
        {"१,२३४", 1234},
        {"১,২৩৪", 1234},
        {"9223372036854775807", 9223372036854775807},
        {"9223372036854775808", {}},
        {"", {}},
        {"-5", {}},
        {"1,23", {}},
        {"83.5", {}},
        {",234", {}},
        {"1,234.567", {}},
        {"1234,567", {}},
        {"1,", {}},
        {"1٢", {}},
        {"many", {}},
        {"\xFF", {}},
    };
    for (const auto& [text, number] : rows)
        EXPECT_EQ(BatteryFigures::wholeNumber(text), number) << text;
}

TEST(BatteryFigures, areReadInTheSummaryOrElseInTheDetails) {
    const auto read = [](const char* summary, std::vector<std::string> details = {}) {
        return BatteryFigures::read({TestID::battery, TestStatus::works, summary, std::move(details), {}});
    };
    const std::vector<std::string> details = {"Maximum capacity: 70% (3.000 mAh of 4.300 mAh when new)",
                                              "Charge cycles: 1.500 (designed for 1.000)"};
    struct Row {
        BatteryFigures figures;
        Number percent, cycles;
        const char* words;
    };
    const Row rows[] = {
        {read("Holds 83% of its charge when new, 1,234 charge cycles"), 83, 1234,
         "Holds % of its charge when new,  charge cycles"},
        {read("Holds 80% of its charge when new, 1 charge cycle", details), 80, 1,
         "Holds % of its charge when new,  charge cycle"},
        {read("Holds 60% of its charge when new: under 80%, so expect shorter battery life"),
         60,
         {},
         "Holds % of its charge when new: under 80%, so expect shorter battery life"},
        {read("macOS condition: Normal, so far, 12 charge cycles", details), 70, 12,
         "macOS condition: Normal, so far,  charge cycles"},
        {read("macOS says the battery needs attention: Service", details), 70, 1500,
         "macOS says the battery needs attention: Service"},
        {read("Holds some% of its charge when new, few charge cycles", details),
         {},
         {},
         "Holds some% of its charge when new, few charge cycles"},
        {read("Not read yet"), {}, {}, "Not read yet"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(row.figures.percent, row.percent) << row.words;
        EXPECT_EQ(row.figures.cycles, row.cycles) << row.words;
        EXPECT_EQ(row.figures.words, row.words);
    }
}

} // namespace
} // namespace tessivo

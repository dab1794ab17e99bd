#include "kit/hardware/BatteryReading.h"

#include <gtest/gtest.h>
#include <limits>

namespace tessivo {
namespace {

using Source = BatteryReading::Source;

TEST(BatteryReading, choosesItsSource) {
    const PropertyMap internal{{"Type", "InternalBattery"}, {"BatteryHealth", "Good"}};
    const PropertyMap absent{{"Type", "InternalBattery"}, {"Is Present", false}};
    const PropertyMap ups{{"Type", "UPS"}, {"BatteryHealth", "Good"}};
    const PropertyMap number{{"BatteryInstalled", 1}, {"CycleCount", 9}};
    const PropertyMap zero{{"BatteryInstalled", 0}, {"CycleCount", 9}};
    const PropertyMap off{{"BatteryInstalled", false}, {"CycleCount", 9}};
    const PropertyMap silent{{"CycleCount", 9}};
    const std::tuple<const PropertyMap*, const PropertyMap*, bool, Source> rows[] = {
        {&number, nullptr, true, Source::registry},       {&number, &internal, true, Source::registry},
        {&zero, &internal, true, Source::powerSources},   {&off, &internal, true, Source::powerSources},
        {&silent, &internal, true, Source::powerSources}, {nullptr, &internal, true, Source::powerSources},
        {nullptr, &absent, false, Source::registry},      {nullptr, &ups, false, Source::registry},
        {&off, nullptr, false, Source::registry},         {nullptr, nullptr, false, Source::none}};
    for (const auto& [registry, powerSource, present, source] : rows) {
        const auto reading = BatteryReading::make(registry, powerSource);
        EXPECT_EQ(reading.present, present);
        EXPECT_EQ(reading.source, source);
        EXPECT_EQ(reading.cycleCount.has_value(), present && source == Source::registry);
        EXPECT_EQ(reading.condition.has_value(), present && powerSource);
    }
}

TEST(BatteryReading, picksItsFigures) {
    const auto installed = [](PropertyMap figures) {
        figures.emplace("BatteryInstalled", true);
        return BatteryReading::make(&figures, nullptr);
    };
    const auto full = installed({{"CycleCount", 0},
                                 {"DesignCapacity", 5000},
                                 {"NominalChargeCapacity", 0},
                                 {"AppleRawMaxCapacity", 4300},
                                 {"MaxCapacity", 100},
                                 {"DesignCycleCount9C", 1000},
                                 {"DesignCycleCount70", 300}});
    EXPECT_EQ(full.cycleCount, 0) << "no cycles is a value";
    EXPECT_EQ(full.designCapacity, 5000);
    EXPECT_EQ(full.fullChargeCapacity, 4300);
    EXPECT_EQ(full.designCycleCount, 1000);

    EXPECT_EQ(installed({{"DesignCycleCount9C", 0}, {"DesignCycleCount70", 300}}).designCycleCount,
              std::nullopt);
    const auto wrong = installed({{"CycleCount", "143"}, {"DesignCapacity", -1}, {"MaxCapacity", true}});
    EXPECT_EQ(wrong, (BatteryReading{.present = true, .source = Source::registry}));
}

TEST(BatteryReading, wordsTheCondition) {
    const auto condition = [](const PropertyMap& source) { return BatteryReading::conditionText(&source); };
    EXPECT_EQ(condition({{"BatteryHealthCondition", "Service"}, {"BatteryHealth", "Good"}}), "Service");
    EXPECT_EQ(condition({{"BatteryHealthCondition", ""}, {"BatteryHealth", "Good"}}), "Normal");
    EXPECT_EQ(condition({{"BatteryHealth", "Fair"}}), "Fair");
    EXPECT_EQ(condition({{"BatteryHealth", 1}}), std::nullopt);
    EXPECT_EQ(BatteryReading::conditionText(nullptr), std::nullopt);
    for (const char* warning :
         {"Service Recommended", "CHECK BATTERY", "Replace Now", "Permanent Failure", "poor"})
        EXPECT_TRUE(BatteryReading{.condition = warning}.conditionWarns()) << warning;
    EXPECT_FALSE(BatteryReading{.condition = "Normal"}.conditionWarns());
    EXPECT_FALSE(BatteryReading{}.conditionWarns());
}

TEST(BatteryReading, worksOutItsHealth) {
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    using Figure = std::optional<std::int64_t>;
    const std::tuple<Figure, Figure, Figure> rows[] = {
        {5000, 4123, 82},  {5000, 5100, 100}, {200, 159, 80}, {1, most, 100},
        {most, most, 100}, {0, 4000, {}},     {5000, -1, {}}, {std::nullopt, 4000, {}}};
    for (const auto& [design, full, percent] : rows)
        EXPECT_EQ((BatteryReading{.designCapacity = design, .fullChargeCapacity = full}.healthPercent()),
                  percent);
}

} // namespace
} // namespace tessivo

#include "kit/hardware/AudioOutputInfo.h"
#include "kit/hardware/LevelMeter.h"
#include "kit/hardware/ToneGenerator.h"
#include "kit/session/CaptureReadings.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>

namespace tessivo {
namespace {

constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(AudioOutputInfo, readsItsProperties) {
    AudioOutputProperties properties{.streamsSize = 4,
                                     .transport = fourCharCode("bltn"),
                                     .dataSource = fourCharCode("hdpn"),
                                     .jack = 1,
                                     .name = "External Headphones",
                                     .dataSourceName = "Headphones"};
    EXPECT_EQ(AudioOutputInfo::make(73, properties),
              (AudioOutputInfo{73, "External Headphones", true, "hdpn", "Headphones", true}));

    properties.dataSource.reset();
    EXPECT_EQ(AudioOutputInfo::make(73, properties)->dataSourceName, std::nullopt)
        << "no source, so no name of it";
    EXPECT_EQ(AudioOutputInfo::make(9, {.streamsSize = 8, .transport = fourCharCode("usb "), .jack = 0}),
              (AudioOutputInfo{.id = 9, .name = "Output", .jackConnected = false}));
    for (const std::optional<std::uint32_t> size : {std::optional<std::uint32_t>{}, {0}})
        EXPECT_EQ(AudioOutputInfo::make(9, {.streamsSize = size}), std::nullopt);

    EXPECT_EQ(fourCharCode(fourCharCode("ispk")), "ispk");
    EXPECT_EQ(fourCharCode(0x68FF706E), "h\uFFFDpn");
}

TEST(HeadphoneDetect, findsTheJack) {
    const AudioOutputInfo usb{1, "Headphones", false, "hdpn"};
    const AudioOutputInfo speakers{2, "MacBook Pro Speakers", true, "ispk", "Internal Speakers"};
    const AudioOutputInfo source{3, "Built-in Output", true, "hdpn", {}, false};
    const AudioOutputInfo capitals{4, "Built-in Output", true, "HDPN"};
    const AudioOutputInfo named{5, "Built-in Output", true, {}, "HEADPHONES"};
    const AudioOutputInfo separate{6, "External Headphones", true};
    const AudioOutputInfo plugged{7, "External Headphones", true, {}, {}, true};
    const AudioOutputInfo unplugged{8, "External Headphones", true, {}, {}, false};
    const AudioOutputInfo lineOut{9, "Line Out", true};

    const std::pair<std::vector<AudioOutputInfo>, std::uint32_t> rows[] = {
        {{}, 0},
        {{usb, speakers}, 0},
        {{speakers, source}, 3},
        {{capitals}, 0},
        {{capitals, named}, 5},
        {{separate}, 6},
        {{plugged}, 7},
        {{unplugged}, 0},
        {{unplugged, lineOut}, 9},
        {{lineOut, plugged}, 9},
        {{plugged, source}, 3}}; // a data source anywhere beats a name on an earlier output
    for (const auto& [outputs, id] : rows) {
        const auto found = HeadphoneDetect::find(outputs);
        EXPECT_EQ(found ? found->id : 0, id);
    }
}

TEST(ToneGenerator, makesAFadedSine) {
    const auto tone = ToneGenerator::stereo(true, false, 523.25, 48000, 1.2, 0.3f);
    ASSERT_EQ(tone.left.size(), 57600u);
    EXPECT_EQ(tone.right, std::vector<float>(57600));
    EXPECT_EQ(tone.left.front(), 0);
    EXPECT_EQ(tone.left.back(), 0);
    const auto envelope = [&](std::size_t i) {
        return tone.left[i] / std::sin(523.25 * 2 * std::numbers::pi * double(i) / 48000);
    };
    EXPECT_NEAR(envelope(480), 0.15, 1e-6);
    for (const std::size_t i : {960, 961, 30000, 56639})
        EXPECT_NEAR(envelope(i), 0.3, 1e-6) << i;
    EXPECT_NEAR(envelope(56640), 0.3 * 959 / 960, 1e-6);
    EXPECT_NEAR(envelope(57119), 0.15, 1e-6);
}

TEST(ToneGenerator, copesWithShortTonesAndSilence) {
    const auto brief = ToneGenerator::stereo(false, true, 12000, 48000, 0.01, 1);
    ASSERT_EQ(brief.right.size(), 480u);
    EXPECT_NEAR(brief.right[1], 1.0 / 240, 1e-6) << "half of a short tone fades in";
    EXPECT_NEAR(brief.right[239], -239.0 / 240, 1e-6);
    EXPECT_NEAR(brief.right[241], 238.0 / 240, 1e-6);

    EXPECT_EQ(ToneGenerator::stereo(true, true, 440, 48000, 1.0 / 48000, 1).left, std::vector<float>{0});
    EXPECT_EQ(ToneGenerator::stereo(false, false, 440, 48000, 1, 1).left, std::vector<float>(48000));
    for (const double duration : {0.0, -1.0, 1e-6, infinity, -infinity, std::nan("")})
        EXPECT_TRUE(ToneGenerator::stereo(true, true, 440, 48000, duration, 1).left.empty()) << duration;
}

TEST(LevelMeter, measuresPower) {
    const std::pair<std::vector<float>, double> rows[] = {
        {{}, -160},       {{0, 0, 0}, -160},          {{1, -1, 1, -1}, 0}, {{0.1f, 0.1f}, -20},
        {{1e-20f}, -160}, {{0.5f, notANumber}, -160}, {{INFINITY}, -160}};
    for (const auto& [samples, expected] : rows)
        EXPECT_NEAR(LevelMeter::decibels(samples), expected, 1e-5);

    const std::vector<float> stereo{0.1f, 1, 0.1f, -1, 0.1f, 1};
    EXPECT_NEAR(*LevelMeter::loudestChannel(stereo, 2), 0, 1e-9);
    EXPECT_NEAR(*LevelMeter::loudestChannel(std::vector<float>{0.1f, notANumber}, 2), -20, 1e-5);
    EXPECT_EQ(LevelMeter::loudestChannel(stereo, 0), std::nullopt);
    EXPECT_EQ(LevelMeter::loudestChannel({}, 2), std::nullopt);
}

TEST(LevelMeter, placesALevelOnTheMeter) {
    const std::pair<double, double> rows[] = {{6, 1},   {0, 1},         {-30, 0.5},    {-60, 0},
                                              {-70, 0}, {-infinity, 0}, {infinity, 1}, {std::nan(""), 0}};
    for (const auto& [decibels, fraction] : rows)
        EXPECT_DOUBLE_EQ(LevelMeter::meterFraction(decibels), fraction) << decibels;
}

TEST(CaptureReadings, keepTheLoudestLevel) {
    MicReading reading{.id = "a", .name = "Microphone"};
    EXPECT_FALSE(reading.heardSound());
    reading.hear(std::nan(""));
    reading.hear(infinity);
    EXPECT_EQ(reading.peak, std::nullopt);
    reading.hear(-35.1);
    EXPECT_FALSE(reading.heardSound());
    reading.hear(-35.0);
    EXPECT_TRUE(reading.heardSound());
    reading.hear(-60);
    EXPECT_EQ(reading.peak, -35.0);
}

TEST(CaptureReadings, surviveANewListOfDevices) {
    const std::vector<MicReading> old{{"gone", "Old", -10, false}, {"kept", "Before", -20, true}};
    const std::vector<CaptureDevice> devices{{"new", "Webcam"}, {"kept", "Renamed"}};
    EXPECT_EQ(relisted(old, devices),
              (std::vector<MicReading>{{"new", "Webcam", {}, false}, {"kept", "Before", -20, true}}));
    EXPECT_EQ(
        relisted(std::vector<CameraReading>{{"kept", "Cam", true, false, ManualAnswer::works}}, devices),
        (std::vector<CameraReading>{{.id = "new", .name = "Webcam"},
                                    {"kept", "Cam", true, false, ManualAnswer::works}}));
}

} // namespace
} // namespace tessivo

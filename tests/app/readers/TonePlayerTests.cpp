#include "app/readers/TonePlayer.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace tessivo {
namespace {

/// Engines that write down what they are told.
struct RecordingOutput final : ToneOutput {
    struct Engine final : ToneEngine {
        explicit Engine(RecordingOutput& output) : output(output) {}
        OutputFormat outputFormat() const override { return output.format; }
        bool isRunning() const override { return output.running; }
        bool start() override {
            output.log.push_back("start");
            return output.running = output.starts;
        }
        void stop() override {
            output.log.push_back("stop");
            output.running = false;
        }
        bool setDevice(std::uint32_t id) override {
            output.log.push_back("device " + std::to_string(id));
            return true;
        }
        void schedule(std::vector<float> left, std::vector<float> right, double rate) override {
            const auto sounds = [](const std::vector<float>& samples) {
                return std::ranges::any_of(samples, [](float sample) { return sample != 0; });
            };
            EXPECT_EQ(left.size(), right.size());
            output.log.push_back("play " + std::to_string(left.size()) + " at " +
                                 std::to_string(std::lround(rate)) + (sounds(left) ? " left" : "") +
                                 (sounds(right) ? " right" : ""));
        }
        RecordingOutput& output;
    };
    std::unique_ptr<ToneEngine> makeEngine() override { return std::make_unique<Engine>(*this); }

    OutputFormat format{.sampleRate = 48'000, .channelCount = 2};
    bool starts = true, running = false;
    std::vector<std::string> log;
};

using Log = std::vector<std::string>;

TEST(TonePlayer, theEngineStartsOnceAndRoutingStopsIt) {
    RecordingOutput output;
    {
        TonePlayer player(output);
        player.route(7); // nothing runs yet
        player.play(true, false);
        player.play(false, true);
        player.route(7);
        player.route(9);
        player.play(true, true, 0.5);
        player.route(std::nullopt);
        EXPECT_EQ(player.device(), std::nullopt);
        player.play(true, true);
    }
    EXPECT_EQ(output.log, (Log{"device 7", "start", "play 57600 at 48000 left", "play 57600 at 48000 right",
                               "stop", "device 9", "start", "play 24000 at 48000 left right", "stop", "start",
                               "play 57600 at 48000 left right", "stop"}));
}

TEST(TonePlayer, oddFormatsAndEnginesAreSilenceOrTheUsualRate) {
    const Log usual{"start", "play 57600 at 48000 left"};
    const std::tuple<double, bool, Log> cases[] = {
        {0, true, usual},
        {-44'100, true, usual},
        {std::numeric_limits<double>::quiet_NaN(), true, usual},
        {44'100, true, {"start", "play 52920 at 44100 left"}},
        {0.1, true, {}},
        {std::numeric_limits<double>::infinity(), true, {}},
        {48'000, false, {"start"}},
    };
    for (const auto& [rate, starts, log] : cases) {
        RecordingOutput output;
        output.format.sampleRate = rate;
        output.starts = starts;
        TonePlayer player(output);
        player.play(true, false);
        EXPECT_EQ(output.log, log) << rate;
    }
}

} // namespace
} // namespace tessivo

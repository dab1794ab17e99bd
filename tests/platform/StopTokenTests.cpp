#include "platform/StopToken.h"

#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <latch>
#include <optional>
#include <thread>

namespace tessivo {
namespace {

TEST(StopToken, isStoppedWithEveryCopyAndRunsWhatWaitsOnce) {
    StopSource source;
    const StopToken token = source.token();
    int early = 0, gone = 0, late = 0;
    const StopCallback first(token, [&] { ++early; });
    std::optional<StopCallback> second(std::in_place, token, [&] { ++gone; });
    second.reset();
    EXPECT_FALSE(token.stopRequested());
    StopSource(source).requestStop();
    source.requestStop();
    EXPECT_TRUE(token.stopRequested() && source.token().stopRequested());
    const StopCallback third(token, [&] { ++late; });
    EXPECT_EQ(early, 1);
    EXPECT_EQ(gone, 0);
    EXPECT_EQ(late, 1) << "stopped already";

    int never = 0;
    const StopCallback none(StopToken(), [&] { ++never; });
    EXPECT_FALSE(StopToken().stopRequested());
    EXPECT_EQ(never, 0);
}

TEST(StopToken, aCallbackThatGoesWaitsForItsOwnRun) {
    StopSource source;
    std::latch running(1);
    std::atomic<bool> ended = false;
    std::optional<StopCallback> callback(std::in_place, source.token(), [&] {
        running.count_down();
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        ended = true;
    });
    std::thread stopper([&] { source.requestStop(); });
    running.wait();
    callback.reset();
    EXPECT_TRUE(ended);
    stopper.join();
}

} // namespace
} // namespace tessivo

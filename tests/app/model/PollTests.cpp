#include "app/model/Poll.h"
#include "platform/simulated/ManualScheduler.h"

#include <gtest/gtest.h>
#include <string>

using namespace tessivo;
using namespace std::chrono_literals;

namespace {

TEST(Poll, runsAtOnceThenAfterEachIntervalForAsLongAsItLives) {
    ManualScheduler clock;
    int runs = 0;
    {
        const Poll poll(clock, 1s, [&] { ++runs; });
        EXPECT_EQ(runs, 1);
        clock.advance(999ms);
        EXPECT_EQ(runs, 1);
        clock.advance(2001ms);
        EXPECT_EQ(runs, 4);
    }
    clock.advance(1h);
    EXPECT_EQ(runs, 4);
    EXPECT_EQ(clock.pending(), 0u);
}

TEST(Poll, anActionMayEndItsOwnPollAndGoOn) {
    ManualScheduler clock;
    std::unique_ptr<Poll> poll;
    std::string said;
    const std::string held = "what the action holds, too long to stand inside it";
    poll = std::make_unique<Poll>(clock, 1s, [&, held] {
        if (clock.now().seconds == 0) return;
        poll.reset();
        said = held;
    });
    clock.advance(1h);
    EXPECT_EQ(poll, nullptr);
    EXPECT_EQ(said, held);
    EXPECT_EQ(clock.pending(), 0u);
}

} // namespace

#include "platform/qt/QtScheduler.h"

#include <QTest>
#include <gtest/gtest.h>

namespace tessivo {
namespace {

using namespace std::chrono_literals;

TEST(QtScheduler, eachActionRunsOnceNeverEarlyAndDiesWithItsHandle) {
    QtScheduler scheduler;
    std::vector<std::unique_ptr<Scheduled>> kept;
    std::size_t runs = 0, early = 0;
    scheduler.after(1ms, [&] { runs += 100; }).reset();
    const auto begin = std::chrono::steady_clock::now();
    for (auto delay = 60ms; delay < 260ms; delay += 7ms)
        kept.push_back(scheduler.after(delay, [&, delay] {
            early += std::chrono::steady_clock::now() - begin < delay;
            ++runs;
        }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return runs >= kept.size(); }));
    QTest::qWait(60);
    EXPECT_EQ(runs, kept.size());
    EXPECT_EQ(early, 0u);
}

TEST(QtScheduler, anActionMayReplaceItsOwnHandle) {
    QtScheduler scheduler;
    int runs = 0;
    const auto captured = std::make_shared<int>(0);
    std::unique_ptr<Scheduled> poll;
    std::function<void()> action = [&, captured] {
        if (++runs < 3)
            poll = scheduler.after(1ms, action);
        else
            poll.reset();
        ++*captured;
    };
    poll = scheduler.after(0ms, action);
    QTest::qWait(60);
    EXPECT_EQ(runs, 3);
    EXPECT_EQ(*captured, 3);
    action = nullptr;
    // Letting go of a handle lets go of what its action holds.
    EXPECT_EQ(captured.use_count(), 1);
}

} // namespace
} // namespace tessivo

#include "platform/SerialQueue.h"

#include <chrono>
#include <gtest/gtest.h>
#include <latch>
#include <thread>
#include <vector>

namespace tessivo {
namespace {

TEST(SerialQueue, runsInOrderOnAThreadOfItsOwnAndFinishesWhatItHolds) {
    std::vector<int> order;
    std::set<std::thread::id> threads;
    {
        SerialQueue queue("Tessivo.test");
        for (int i = 0; i < 1'000; ++i)
            queue.async([&, i] {
                order.push_back(i);
                threads.insert(std::this_thread::get_id());
            });
    }
    ASSERT_EQ(order.size(), 1'000u);
    EXPECT_TRUE(std::ranges::is_sorted(order));
    EXPECT_EQ(threads.size(), 1u);
    EXPECT_FALSE(threads.contains(std::this_thread::get_id()));
}

TEST(SerialQueue, aPieceThatHangsHoldsUpNobodyForLong) {
    auto free = std::make_shared<std::latch>(1);
    auto ended = std::make_shared<std::latch>(1);
    const auto begin = std::chrono::steady_clock::now();
    {
        SerialQueue queue("Tessivo.test");
        queue.async([free, ended] {
            free->wait();
            ended->count_down();
        });
    }
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(4));
    free->count_down();
    ended->wait();
}

} // namespace
} // namespace tessivo

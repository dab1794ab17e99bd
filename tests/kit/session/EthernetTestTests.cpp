#include "kit/session/EthernetTest.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

constexpr std::uint64_t gigabit = 1'000'000'000;

WiredInterface port(std::string name, bool up, std::optional<std::uint64_t> speed = {}) {
    return {std::move(name), true, "AppleBCM5701Ethernet", "IOEthernetInterface", up, speed};
}

TEST(EthernetTest, seesALinkComeUp) {
    EthernetTest test;
    test.record({port("en0", false), {"en5", false, "USB", "", true, gigabit}});
    EXPECT_TRUE(test.looked);
    EXPECT_EQ(test.ports, std::vector<std::string>{"en0"});
    EXPECT_EQ(test.linkSeenOn, std::nullopt);

    test.record({port("en0", true, gigabit)});
    EXPECT_TRUE(test.cameUpWhileTesting);
    EXPECT_EQ(test.linkSeenOn, "en0");
    EXPECT_EQ(test.linkSpeed, gigabit);

    test.record({});
    EXPECT_TRUE(test.cameUpWhileTesting);
    EXPECT_EQ(test.linkSeenOn, "en0") << "a link once seen stays seen";
    EXPECT_TRUE(test.ports.empty());
}

TEST(EthernetTest, keepsTheBestLink) {
    using Speed = std::optional<std::uint64_t>;
    // The speeds of two ports that are up, the port that is kept, and its speed.
    const std::tuple<Speed, Speed, const char*, Speed> rows[] = {{gigabit, 10 * gigabit, "en1", 10 * gigabit},
                                                                 {gigabit, gigabit, "en0", gigabit},
                                                                 {0, 0, "en0", {}},
                                                                 {std::nullopt, 1, "en1", 1},
                                                                 {gigabit, {}, "en0", gigabit}};
    for (const auto& [first, second, name, speed] : rows) {
        EthernetTest test;
        test.record({port("en0", true, first), port("en1", true, second)});
        EXPECT_EQ(test.linkSeenOn, name);
        EXPECT_EQ(test.linkSpeed, speed) << name;
        EXPECT_FALSE(test.cameUpWhileTesting) << "it was up from the start";
    }
}

} // namespace
} // namespace tessivo

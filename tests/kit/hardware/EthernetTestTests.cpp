#include "kit/hardware/EthernetTest.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

constexpr std::uint64_t gigabit = 1'000'000'000;

WiredInterface port(std::string name, bool up, std::optional<std::uint64_t> speed = {}) {
    return {std::move(name), true, "AppleBCM5701Ethernet", "IOEthernetInterface", up, speed};
}

TEST(WiredInterface, readsItsProperties) {
    const PropertyMap own{{"BSD Name", "en0"}, {"IOBuiltin", true}};
    struct Row {
        PropertyMap controller;
        bool up;
        std::optional<std::uint64_t> speed;
    };
    const Row rows[] = {
        {{{"IOLinkStatus", 3}, {"IOLinkSpeed", std::int64_t(gigabit)}}, true, gigabit},
        {{{"IOLinkStatus", 7}, {"IOLinkSpeed", 0}}, true, 0},
        {{{"IOLinkStatus", 1}}, false, {}},
        {{{"IOLinkStatus", -1}, {"IOLinkSpeed", -1}}, false, {}},
        {{{"IOLinkStatus", "3"}, {"IOLinkSpeed", true}}, false, {}},
        {{}, false, {}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(WiredInterface::make(own, "IOEthernetInterface", row.controller, "AppleBCM5701Ethernet"),
                  port("en0", row.up, row.speed))
            << &row - rows;

    EXPECT_EQ(WiredInterface::make({{"IOBuiltin", true}}, "", {}, ""), std::nullopt);
    EXPECT_EQ(WiredInterface::make({{"BSD Name", 0}}, "", {}, ""), std::nullopt);
    for (const Property& builtIn : {Property(false), Property(1), Property("true"), Property()})
        EXPECT_FALSE(
            WiredInterface::make({{"BSD Name", "en1"}, {"IOBuiltin", builtIn}}, "", {}, "")->builtIn);
}

TEST(EthernetCheck, picksBuiltInEthernet) {
    const std::tuple<bool, const char*, const char*, bool> rows[] = {
        {true, "AppleBCM5701Ethernet", "IOEthernetInterface", true},
        {true, "", "", true},
        {false, "AppleUSBEthernetHost", "IOEthernetInterface", false},
        {true, "IOThunderBOLTPort", "IOEthernetInterface", false},
        {true, "AppleBCMWLANCore", "IO80211Interface", false},
        {true, "IOSkywalkNetworkBSDClient", "", false},
        {true, "AppleWiFi", "", false},
        {true, "AppleUSBNCMData", "", false},
        {true, "", "IOBridgeInterface", false},
        {true, "IOBluetoothThing", "", false},
        {true, "AirPort_Brcm", "", false},
    };
    for (const auto& [builtIn, controller, own, expected] : rows) {
        const WiredInterface wired{"en0", builtIn, controller, own, false, {}};
        EXPECT_EQ(EthernetCheck::builtInPorts({wired}).size(), expected ? 1u : 0u) << controller << own;
    }
}

TEST(EthernetCheck, wordsTheSpeed) {
    using Speed = std::optional<std::uint64_t>;
    const std::pair<Speed, std::optional<std::string>> rows[] = {
        {Speed{}, {}},
        {0, {}},
        {100'000'000, "100 Mb/s"},
        {999'999'999, "999 Mb/s"},
        {999'999, "0 Mb/s"},
        {gigabit, "1 Gb/s"},
        {2'500'000'000, "2.5 Gb/s"},
        {10 * gigabit, "10 Gb/s"},
    };
    for (const auto& [speed, expected] : rows)
        EXPECT_EQ(EthernetCheck::speedText(speed), expected);
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
    struct Row {
        std::vector<WiredInterface> scan;
        const char* name;
        std::optional<std::uint64_t> speed;
    };
    const Row rows[] = {
        {{port("en0", true, gigabit), port("en1", true, 10 * gigabit)}, "en1", 10 * gigabit},
        {{port("en0", true, gigabit), port("en1", true, gigabit)}, "en0", gigabit},
        {{port("en0", true, 0), port("en1", true, 0)}, "en0", {}},
        {{port("en0", true), port("en1", true, 1)}, "en1", 1},
        {{port("en0", true, gigabit), port("en1", true)}, "en0", gigabit},
    };
    for (const Row& row : rows) {
        EthernetTest test;
        test.record(row.scan);
        EXPECT_EQ(test.linkSeenOn, row.name) << &row - rows;
        EXPECT_EQ(test.linkSpeed, row.speed) << &row - rows;
        EXPECT_FALSE(test.cameUpWhileTesting) << "it was up from the start";
    }
}

} // namespace
} // namespace tessivo

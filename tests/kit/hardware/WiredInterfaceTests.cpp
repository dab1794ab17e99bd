#include "kit/hardware/WiredInterface.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

constexpr std::uint64_t gigabit = 1'000'000'000;

WiredInterface port(std::string name, bool up, std::optional<std::uint64_t> speed = {}) {
    return {std::move(name), true, "AppleBCM5701Ethernet", "IOEthernetInterface", up, speed};
}

TEST(WiredInterface, readsItsProperties) {
    const PropertyMap own{{"BSD Name", "en0"}, {"IOBuiltin", true}};
    const auto read = [&](const PropertyMap& controller) {
        return WiredInterface::make(own, "IOEthernetInterface", controller, "AppleBCM5701Ethernet");
    };
    EXPECT_EQ(read({{"IOLinkStatus", 3}, {"IOLinkSpeed", std::int64_t(gigabit)}}),
              port("en0", true, gigabit));
    EXPECT_EQ(read({{"IOLinkStatus", 7}, {"IOLinkSpeed", 0}}), port("en0", true, 0));
    EXPECT_EQ(read({{"IOLinkStatus", 1}}), port("en0", false)) << "valid, but not active";
    EXPECT_EQ(read({{"IOLinkStatus", -1}, {"IOLinkSpeed", -1}}), port("en0", false)) << "no reading";

    for (const auto& [flags, off] :
         {std::pair(Property(0x1002), true), {Property(0x1003), false}, {Property(), false}})
        EXPECT_EQ(
            WiredInterface::make({{"BSD Name", "en0"}, {"IOInterfaceFlags", flags}}, "", {}, "")->switchedOff,
            off);

    EXPECT_EQ(WiredInterface::make({{"IOBuiltin", true}}, "", {}, ""), std::nullopt);
    for (const Property& builtIn : {Property(false), Property(1), Property("true"), Property()})
        EXPECT_FALSE(
            WiredInterface::make({{"BSD Name", "en1"}, {"IOBuiltin", builtIn}}, "", {}, "")->builtIn);
}

TEST(EthernetCheck, picksBuiltInEthernet) {
    EXPECT_EQ(EthernetCheck::builtInPorts({port("en0", false), port("en1", true)}).size(), 2u);
    for (const char* other :
         {"IOThunderBOLTPort", "IO80211Interface", "IOSkywalkNetworkBSDClient", "AppleWiFi",
          "AppleUSBNCMData", "IOBridgeInterface", "IOBluetoothThing", "AirPort_Brcm"}) {
        EXPECT_FALSE((WiredInterface{"en0", true, other, ""}).isEthernet()) << other;
        EXPECT_FALSE((WiredInterface{"en0", true, "", other}).isEthernet()) << other;
    }
    const WiredInterface adapter{"en5", false, "AppleUSBEthernetHost", "IOEthernetInterface", true, gigabit};
    EXPECT_TRUE(EthernetCheck::builtInPorts({adapter}).empty());
}

TEST(EthernetCheck, wordsTheSpeed) {
    const std::pair<std::uint64_t, const char*> rows[] = {
        {100'000'000, "100 Mb/s"}, {999'999'999, "999 Mb/s"},   {gigabit, "1 Gb/s"},
        {10 * gigabit, "10 Gb/s"}, {2'500'000'000, "2.5 Gb/s"}, {999, "0 Mb/s"}};
    for (const auto& [speed, expected] : rows)
        EXPECT_EQ(EthernetCheck::speedText(speed), expected);
    EXPECT_EQ(EthernetCheck::speedText(0), std::nullopt);
    EXPECT_EQ(EthernetCheck::speedText({}), std::nullopt);
}

} // namespace
} // namespace tessivo

#include "app/readers/Readers.h"
#include "platform/linux/LinuxRegistry.h"
#include "tests/platform/linux/CapturedTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tessivo {
namespace {

using testing::ElementsAre;

std::vector<WiredInterface> read(const CapturedTree& tree) {
    return readWiredInterfaces(LinuxRegistry(tree.tree()));
}

std::vector<std::string> printed(const CapturedTree& tree) {
    std::vector<std::string> lines;
    for (const WiredInterface& interface : read(tree))
        lines.push_back(interface.bsdName + (interface.builtIn ? " built in, " : ", ") +
                        interface.interfaceClass + " by " + interface.controllerClass +
                        (interface.switchedOff  ? ", off"
                         : interface.linkActive ? ", up"
                                                : ", down") +
                        (interface.linkSpeed ? " " + interface.speedText().value_or("?") : ""));
    return lines;
}

std::vector<std::string> builtInPorts(const CapturedTree& tree) {
    std::vector<std::string> names;
    for (const WiredInterface& port : EthernetCheck::builtInPorts(read(tree)))
        names.push_back(port.bsdName);
    return names;
}

TEST(Network, everyKindOfInterface) {
    EXPECT_THAT(printed(CapturedTree("network")),
                ElementsAre("br0, BridgeInterface by , up", "docker0, BridgeInterface by , down",
                            "enp0s31f6 built in, EthernetInterface by e1000e, up 1 Gb/s",
                            "enp12s0, ThunderboltEthernetInterface by igb, up",
                            "enp16s0, ThunderboltEthernetInterface by tg3, up",
                            "enp20s0, ThunderboltEthernetInterface by , down",
                            "enp24s0, ThunderboltEthernetInterface by , down",
                            "enp2s0 built in, EthernetInterface by tg3, down",
                            "enp2s0.5, VirtualInterface by , down", "enp2s0v0, OtherInterface by igbvf, down",
                            "enp3s0 built in, EthernetInterface by tg3, off",
                            "enp9s0, ThunderboltEthernetInterface by tg3, up 1 Gb/s",
                            "enx00e04c680001, USBEthernetInterface by r8152, up 1 Gb/s",
                            "tap0, VirtualInterface by , up",
                            "thunderbolt0, ThunderboltInterface by thunderbolt-net, up 20 Gb/s",
                            "tun0, VirtualInterface by , up", "wlp4s0, IO80211Interface by iwlwifi, down",
                            "wwp5s0, OtherInterface by iosm, down"));
    EXPECT_THAT(builtInPorts(CapturedTree("network")), ElementsAre("enp0s31f6", "enp2s0", "enp3s0"));
    EXPECT_THAT(printed(CapturedTree("macbook-pro-t2")),
                ElementsAre("t2_ncm, USBEthernetInterface by cdc_ncm, up 425 Mb/s",
                            "wlp3s0, IO80211Interface by brcmfmac, up"));
    EXPECT_THAT(builtInPorts(CapturedTree("macbook-pro-t2")), ElementsAre());
}

TEST(Network, hostileValues) {
    EXPECT_THAT(printed(CapturedTree("hostile")),
                ElementsAre("eth0 built in, EthernetInterface by , up",
                            "eth1 built in, EthernetInterface by , down", "eth2, VirtualInterface by , up",
                            "eth5 built in, EthernetInterface by , down",
                            "eth\uFFFD4, VirtualInterface by , down"));
    EXPECT_FALSE(LinuxRegistry(CapturedTree().tree()).matchingServices("IONetworkInterface"));
}

TEST(Network, aLinkThatComesUp) {
    CapturedTree tree("network");
    const std::string port = "sys/devices/pci0000:00/0000:00:1c.4/0000:02:00.0/net/enp2s0/";
    EthernetTest test;
    test.record(read(tree));
    EXPECT_EQ(test.linkSeenOn, "enp0s31f6");
    EXPECT_FALSE(test.cameUpWhileTesting);
    tree.add(port + "carrier = 1");
    tree.add(port + "operstate = up");
    tree.add(port + "speed = 2500");
    test.record(read(tree));
    EXPECT_EQ(test.linkSeenOn, "enp2s0");
    EXPECT_EQ(test.linkSpeed, 2'500'000'000u);
    EXPECT_TRUE(test.cameUpWhileTesting);
}

} // namespace
} // namespace tessivo

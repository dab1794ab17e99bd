#pragma once

#include "kit/hardware/WiredInterface.h"

#include <set>

namespace tessivo {

/// What the wired-port test has seen. `sawDown` isn't persisted.
struct EthernetTest {
    bool looked = false;
    std::vector<std::string> ports;
    std::optional<std::string> linkSeenOn;
    std::optional<std::uint64_t> linkSpeed;
    bool cameUpWhileTesting = false;
    std::set<std::string> sawDown;

    /// Takes one scan. A link once seen stays seen.
    void record(const std::vector<WiredInterface>& interfaces);

    bool operator==(const EthernetTest&) const = default;
};
BOOST_DESCRIBE_STRUCT(EthernetTest, (), (looked, ports, linkSeenOn, linkSpeed, cameUpWhileTesting))

} // namespace tessivo

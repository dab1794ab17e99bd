#include "kit/session/EthernetTest.h"

namespace tessivo {

void EthernetTest::record(const std::vector<WiredInterface>& interfaces) {
    looked = true;
    ports.clear();
    for (const WiredInterface& port : EthernetCheck::builtInPorts(interfaces)) {
        ports.push_back(port.bsdName);
        if (!port.linkActive) {
            sawDown.insert(port.bsdName);
            continue;
        }
        if (sawDown.contains(port.bsdName)) cameUpWhileTesting = true;
        const std::uint64_t speed = port.linkSpeed.value_or(0);
        if (linkSeenOn && speed <= linkSpeed.value_or(0)) continue;
        linkSeenOn = port.bsdName;
        if (speed != 0) linkSpeed = speed;
    }
}

} // namespace tessivo

#pragma once

#include "platform/linux/PulseDevices.h"

#include <set>

namespace tessivo {

/// The ports that a server wouldn't make active ones. A port is forgotten once its plug is pulled or it is
/// active after all.
class RefusedPorts final {
public:
    void add(const std::string& sink, const std::string& port) { m_ports.insert({sink, port}); }

    /// Sets `refused` of the sink's ports.
    void mark(PulseSink& sink) {
        for (PulsePort& port : sink.ports) {
            const std::pair key(sink.name, port.name);
            if (port.available != PulseAvailability::yes || sink.activePort == port.name) m_ports.erase(key);
            port.refused = m_ports.contains(key);
        }
    }

private:
    std::set<std::pair<std::string, std::string>> m_ports;
};

} // namespace tessivo

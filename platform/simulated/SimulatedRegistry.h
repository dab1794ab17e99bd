#pragma once

#include "platform/simulated/SimulatedMac.h"

namespace tessivo {

/// The hardware registry of a simulated Mac. Main thread.
class SimulatedRegistry final : public Registry {
public:
    explicit SimulatedRegistry(const SimulatedMac& mac) : m_mac(mac) {}

    std::optional<std::vector<RegistryEntry>> matchingServices(const std::string& className) const override {
        const auto* entries = m_mac.find(m_mac.facts.registry, className);
        return entries ? std::optional(*entries) : std::nullopt;
    }

private:
    const SimulatedMac& m_mac;
};

class SimulatedPowerSources final : public PowerSources {
public:
    explicit SimulatedPowerSources(const SimulatedMac& mac) : m_mac(mac) {}

    std::optional<PropertyList> descriptions() const override {
        return m_mac.reads(SimulatedReading::powerSources) ? m_mac.facts.powerSources : std::nullopt;
    }

private:
    const SimulatedMac& m_mac;
};

} // namespace tessivo

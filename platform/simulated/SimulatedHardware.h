#pragma once

#include "platform/simulated/SimulatedMac.h"

namespace tessivo {

/// Machine facts, registry and power sources of a simulated Mac. Main thread.
class SimulatedFacts final : public MachineFacts {
public:
    explicit SimulatedFacts(const SimulatedMac& mac) : m_mac(mac) {}

    std::optional<std::string> sysctlbyname(const std::string& name) const override;
    OperatingSystem operatingSystem() const override;
    std::uint64_t physicalMemory() const override;
    std::optional<std::int64_t> startupVolumeTotalCapacity() const override;
    std::optional<HardwareKeys> hardwareKeys() const override { return m_mac.hardwareKeys; }

private:
    const SimulatedMac& m_mac;
};

class SimulatedRegistry final : public Registry {
public:
    explicit SimulatedRegistry(const SimulatedMac& mac) : m_mac(mac) {}

    std::optional<std::vector<RegistryEntry>> matchingServices(const std::string& className) const override;

private:
    const SimulatedMac& m_mac;
};

class SimulatedPowerSources final : public PowerSources {
public:
    explicit SimulatedPowerSources(const SimulatedMac& mac) : m_mac(mac) {}

    std::optional<PropertyList> descriptions() const override;

private:
    const SimulatedMac& m_mac;
};

} // namespace tessivo

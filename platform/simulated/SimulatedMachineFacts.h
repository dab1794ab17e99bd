#pragma once

#include "platform/simulated/SimulatedMac.h"

namespace tessivo {

/// The machine facts of a simulated Mac. Main thread.
class SimulatedMachineFacts final : public MachineFacts {
public:
    explicit SimulatedMachineFacts(const SimulatedMac& mac) : m_mac(mac) {}

    std::optional<std::string> sysctlbyname(const std::string& name) const override {
        const auto* text = m_mac.find(m_mac.facts.sysctl, name);
        return text ? std::optional(*text + '\0') : std::nullopt;
    }
    OperatingSystem operatingSystem() const override {
        return m_mac.facts.operatingSystem.value_or(OperatingSystem());
    }
    std::uint64_t physicalMemory() const override { return m_mac.facts.physicalMemory.value_or(0); }
    std::optional<std::int64_t> startupVolumeTotalCapacity() const override {
        return m_mac.reads(SimulatedReading::storage) ? m_mac.facts.startupVolumeTotalCapacity : std::nullopt;
    }
    std::optional<HardwareKeys> hardwareKeys() const override { return m_mac.hardwareKeys; }

private:
    const SimulatedMac& m_mac;
};

} // namespace tessivo

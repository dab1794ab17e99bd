#include "platform/simulated/SimulatedHardware.h"

#include "kit/hardware/RegistryNames.h"

namespace tessivo {

namespace {

/// The reading that a name of the system belongs to.
std::optional<SimulatedReading> reading(const std::string& name) {
    static const std::map<std::string, SimulatedReading> readings = {
        {SystemFact::model, SimulatedReading::model},
        {SystemFact::processor, SimulatedReading::chip},
        {SystemFact::build, SimulatedReading::build},
        {RegistryClass::machine, SimulatedReading::serial},
        {RegistryClass::battery, SimulatedReading::battery},
        {RegistryClass::usbDevice, SimulatedReading::usb},
        {RegistryClass::network, SimulatedReading::network}};
    const auto entry = readings.find(name);
    if (entry == readings.end()) return std::nullopt;
    return entry->second;
}

bool reads(const SimulatedMac& mac, const std::string& name) {
    const auto named = reading(name);
    return !named || mac.reads(*named);
}

} // namespace

std::optional<std::string> SimulatedFacts::sysctlbyname(const std::string& name) const {
    const auto entry = m_mac.facts.sysctl.find(name);
    if (entry == m_mac.facts.sysctl.end() || !reads(m_mac, name)) return std::nullopt;
    return entry->second + '\0';
}

OperatingSystem SimulatedFacts::operatingSystem() const {
    return m_mac.facts.operatingSystem;
}

std::uint64_t SimulatedFacts::physicalMemory() const {
    return m_mac.facts.physicalMemory;
}

std::optional<std::int64_t> SimulatedFacts::startupVolumeTotalCapacity() const {
    if (!m_mac.reads(SimulatedReading::storage)) return std::nullopt;
    return m_mac.facts.startupVolumeTotalCapacity;
}

std::optional<std::vector<RegistryEntry>>
SimulatedRegistry::matchingServices(const std::string& className) const {
    const auto entries = m_mac.facts.registry.find(className);
    if (entries == m_mac.facts.registry.end() || !reads(m_mac, className)) return std::nullopt;
    return entries->second;
}

std::optional<PropertyList> SimulatedPowerSources::descriptions() const {
    if (!m_mac.reads(SimulatedReading::powerSources)) return std::nullopt;
    return m_mac.facts.powerSources;
}

} // namespace tessivo

#include "platform/simulated/SimulatedHardware.h"

namespace tessivo {

namespace {

/// The reading that a name of the system belongs to.
std::optional<SimulatedReading> reading(const std::string& name) {
    static const std::map<std::string, SimulatedReading> readings = {
        {"hw.model", SimulatedReading::model},
        {"machdep.cpu.brand_string", SimulatedReading::chip},
        {"kern.osversion", SimulatedReading::build},
        {"IOPlatformExpertDevice", SimulatedReading::serial},
        {"AppleSmartBattery", SimulatedReading::battery},
        {"IOUSBHostDevice", SimulatedReading::usb},
        {"IONetworkInterface", SimulatedReading::network}};
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

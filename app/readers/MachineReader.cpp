#include "app/readers/Readers.h"
#include "kit/hardware/RegistryNames.h"

namespace tessivo {

std::optional<std::string> sysctlText(const MachineFacts& facts, const std::string& name) {
    return sysctlText(facts.sysctlbyname(name));
}

std::optional<std::string> readSerial(const Registry& registry) {
    const auto services = registry.matchingServices(RegistryClass::machine);
    if (!services || services->empty() || !services->front().properties) return std::nullopt;
    return text(*services->front().properties, RegistryKey::serialNumber);
}

std::optional<std::int64_t> readStartupCapacity(const MachineFacts& facts) {
    return facts.startupVolumeTotalCapacity();
}

MachineInfo readMachineInfo(const MachineFacts& facts, const Registry& registry) {
    const OperatingSystem system = facts.operatingSystem();
    MachineInfo machine;
    machine.osVersion = osVersionText(system.title, system.major, system.minor, system.patch,
                                      sysctlText(facts, SystemFact::build));
    machine.modelID = sysctlText(facts, SystemFact::model).value_or(MachineInfo::unknownModel);
    machine.serial = readSerial(registry);
    machine.chip = sysctlText(facts, SystemFact::processor);
    machine.memoryBytes = facts.physicalMemory();
    machine.storageBytes = readStartupCapacity(facts);
    return machine;
}

} // namespace tessivo

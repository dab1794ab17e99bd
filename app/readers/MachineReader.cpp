#include "app/readers/Readers.h"

#include "kit/support/Text.h"

namespace tessivo {

std::optional<std::string> sysctlText(const MachineFacts& facts, const std::string& name) {
    const auto value = facts.sysctlbyname(name);
    if (!value) return std::nullopt;
    std::string text = Text::repaired(std::string_view(*value).substr(0, value->find('\0')));
    if (text.empty()) return std::nullopt;
    return text;
}

std::optional<std::string> readSerial(const Registry& registry) {
    const auto services = registry.matchingServices("IOPlatformExpertDevice");
    if (!services || services->empty() || !services->front().properties) return std::nullopt;
    return text(*services->front().properties, "IOPlatformSerialNumber");
}

std::optional<std::int64_t> readStartupCapacity(const MachineFacts& facts) {
    return facts.startupVolumeTotalCapacity();
}

MachineInfo readMachineInfo(const MachineFacts& facts, const Registry& registry) {
    const OperatingSystem system = facts.operatingSystem();
    MachineInfo machine;
    machine.osVersion = "macOS " + std::to_string(system.major) + "." + std::to_string(system.minor);
    if (system.patch >= 1) machine.osVersion += "." + std::to_string(system.patch);
    if (system.title) machine.osVersion = *system.title;
    if (const auto build = sysctlText(facts, "kern.osversion")) machine.osVersion += " (" + *build + ")";
    machine.modelID = sysctlText(facts, "hw.model").value_or("Unknown");
    machine.serial = readSerial(registry);
    machine.chip = sysctlText(facts, "machdep.cpu.brand_string");
    machine.memoryBytes = facts.physicalMemory();
    machine.storageBytes = readStartupCapacity(facts);
    return machine;
}

} // namespace tessivo

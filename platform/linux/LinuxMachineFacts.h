#pragma once

#include "platform/MachineFacts.h"
#include "platform/linux/SystemTree.h"

namespace tessivo {

/// Model from the firmware's tables (on an Apple machine the Mac's own identifier) or by the device tree's
/// board, chip from the device tree or /proc/cpuinfo, the memory that is installed, the kernel's release as
/// the build, and the drive inside the computer, whatever holds "/". The title is the distribution's name
/// and version.
class LinuxMachineFacts final : public MachineFacts {
public:
    explicit LinuxMachineFacts(SystemTree tree);

    std::optional<std::string> sysctlbyname(const std::string& name) const override;
    OperatingSystem operatingSystem() const override;
    std::uint64_t physicalMemory() const override;
    std::optional<std::int64_t> startupVolumeTotalCapacity() const override;
    std::optional<HardwareKeys> hardwareKeys() const override;

private:
    SystemTree m_tree;
};

} // namespace tessivo

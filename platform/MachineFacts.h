#pragma once

#include "kit/hardware/HardwareKeys.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tessivo {

/// The operating system's numbers. `title` is its name and version as one text where the system isn't
/// macOS ("Debian GNU/Linux 12"), else absent.
struct OperatingSystem {
    std::optional<std::string> title;
    std::int64_t major = 0;
    std::int64_t minor = 0;
    std::int64_t patch = 0;
};

/// Raw facts of the machine, short and synchronous. What can't be read is absent.
class MachineFacts {
public:
    virtual ~MachineFacts() = default;

    /// The bytes of "hw.model", "machdep.cpu.brand_string" or "kern.osversion", as the system gives
    /// them, a closing zero byte included.
    virtual std::optional<std::string> sysctlbyname(const std::string& name) const = 0;
    virtual OperatingSystem operatingSystem() const = 0;
    /// Installed memory in bytes, 0 if it can't be read.
    virtual std::uint64_t physicalMemory() const = 0;
    /// Total size of the startup volume in bytes; under Linux, which may run from anywhere, of the drive
    /// inside the computer.
    virtual std::optional<std::int64_t> startupVolumeTotalCapacity() const = 0;
    /// What tells this machine from its twin on a platform where an ordinary user can't read the serial
    /// number; absent on one where the serial number alone does.
    virtual std::optional<HardwareKeys> hardwareKeys() const { return std::nullopt; }
};

} // namespace tessivo

#pragma once

#include "platform/MachineFacts.h"

namespace tessivo {

/// The facts of this Mac as its system tells them. The startup volume is the one that holds "/". A system
/// whose version can't be read is "macOS" without numbers.
class MacMachineFacts final : public MachineFacts {
public:
    std::optional<std::string> sysctlbyname(const std::string& name) const override;
    OperatingSystem operatingSystem() const override;
    std::uint64_t physicalMemory() const override;
    std::optional<std::int64_t> startupVolumeTotalCapacity() const override;
};

} // namespace tessivo

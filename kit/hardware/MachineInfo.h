#pragma once

#include "kit/catalog/SpecCatalog.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tessivo {

/// The identity of one Mac as it was read. A part that couldn't be read is absent or "Unknown".
struct MachineInfo {
    std::string modelID;
    std::optional<std::string> serial;
    std::optional<std::string> chip;
    std::uint64_t memoryBytes = 0;
    std::string osVersion;
    std::optional<std::int64_t> storageBytes;

    /// The model identifier of a machine whose own couldn't be read.
    static constexpr const char* unknownModel = "Unknown";

    std::string displayName() const;
    const ModelSpec* spec() const; ///< the catalog's row, or null
    std::optional<Processor> processor() const;
    bool isIntel() const;
    std::string memoryText() const; ///< "16 GB", binary
    std::optional<std::string> storageText() const;
    std::optional<std::int64_t> marketedStorageGB() const; ///< in table units

    bool operator==(const MachineInfo&) const = default;
};
BOOST_DESCRIBE_STRUCT(MachineInfo, (), (modelID, serial, chip, memoryBytes, osVersion, storageBytes))

/// The text of a system value's bytes: up to the first zero byte, invalid UTF-8 replaced; nothing if that
/// is empty.
std::optional<std::string> sysctlText(const std::optional<std::string>& bytes);

/// "macOS 15.3.1 (24D70)": the patch only from 1 upward, the build only where it was read. `title` stands
/// in place of "macOS" and the numbers on a system that isn't macOS.
std::string osVersionText(const std::optional<std::string>& title, std::int64_t major, std::int64_t minor,
                          std::int64_t patch, const std::optional<std::string>& build);

} // namespace tessivo

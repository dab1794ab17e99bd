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

} // namespace tessivo

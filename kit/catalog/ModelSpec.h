#pragma once

#include "kit/catalog/MacKind.h"
#include "kit/catalog/Processor.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tessivo {

/// One row of the model table. Sizes are in table units: gigabytes below 1024; from 1024 upward 1024
/// stands for one terabyte.
struct ModelSpec {
    std::vector<std::string> ids;
    std::string name;
    MacKind kind{};
    std::vector<std::int64_t> storage;
    Processor processor{};
    std::vector<std::int64_t> fusion;
    bool replaceableStorage = false;
    std::vector<std::string> sources; ///< full links to the maker's pages about it, first one preferred

    bool operator==(const ModelSpec&) const = default;
};

} // namespace tessivo

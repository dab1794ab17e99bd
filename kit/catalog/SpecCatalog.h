#pragma once

#include "kit/support/Describe.h"

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace tessivo {

enum class MacKind { laptop, allInOne, desktop };
BOOST_DESCRIBE_ENUM(MacKind, laptop, allInOne, desktop)

/// `intelT2` is an Intel Mac with the T2 security chip.
enum class Processor { appleSilicon, intelT2, intel };
BOOST_DESCRIBE_ENUM(Processor, appleSilicon, intelT2, intel)

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

/// The program's one table of Mac models. Built once on first use; any thread. A model that isn't
/// in it is a normal case.
namespace SpecCatalog {

const std::vector<ModelSpec>& models();

/// Each identifier to its row.
const std::unordered_map<std::string, const ModelSpec*>& byID();

/// The row of an identifier (exact, case-sensitive), or null. It lives as long as the process.
const ModelSpec* spec(const std::string& modelID);

/// The row's kind, else what the identifier's prefix tells, else nothing.
std::optional<MacKind> kind(const std::string& modelID);

/// The row's name, or the identifier itself.
std::string displayName(const std::string& modelID);

} // namespace SpecCatalog
} // namespace tessivo

#pragma once

#include "kit/catalog/ModelSpec.h"

#include <optional>
#include <unordered_map>

namespace tessivo {

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

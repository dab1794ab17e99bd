#pragma once

#include "kit/catalog/SpecCatalog.h"

/// Maps a byte count to one of the sizes a Mac is sold with. Pure, any thread.
namespace tessivo::StorageCheck {

/// 64 to 16384, in table units.
const std::vector<std::int64_t>& standardSizes();

/// The decimal gigabytes that a size in table units is marketed as: 1536 is 1500.0.
double decimalGB(std::int64_t size);

/// The standard size (10 % below to 3 % above), or a Fusion size of the row up to 130 GB above that
/// range, or nothing. `spec` may be null.
std::optional<std::int64_t> nearest(std::int64_t bytes, const ModelSpec* spec);

/// Whether the model was never sold with a drive of this size.
bool isForeign(std::int64_t size, const ModelSpec& spec);

} // namespace tessivo::StorageCheck

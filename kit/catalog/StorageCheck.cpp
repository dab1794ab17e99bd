#include "kit/catalog/StorageCheck.h"

#include <algorithm>

namespace tessivo::StorageCheck {
namespace {

constexpr double lowestShare = 0.9;
constexpr double highestShare = 1.03;
/// The flash part of a Fusion Drive adds up to this much to the disk's own size, in decimal GB.
constexpr double fusionAllowance = 130.0;

} // namespace

const std::vector<std::int64_t>& standardSizes() {
    static const std::vector<std::int64_t> sizes = {64,   128,  256,  512,  1024, 1536,
                                                    2048, 3072, 4096, 8192, 16384};
    return sizes;
}

double decimalGB(std::int64_t size) {
    const auto value = static_cast<double>(size);
    return size < 1024 ? value : value / 1024 * 1000;
}

std::optional<std::int64_t> nearest(std::int64_t bytes, const ModelSpec* spec) {
    const double measured = static_cast<double>(bytes) / 1e9;
    for (const std::int64_t size : standardSizes()) {
        const double marketed = decimalGB(size);
        if (lowestShare * marketed <= measured && measured <= highestShare * marketed) return size;
    }
    if (!spec) return std::nullopt;
    for (const std::int64_t size : spec->fusion) {
        const double highest = highestShare * decimalGB(size);
        if (highest < measured && measured <= highest + fusionAllowance) return size;
    }
    return std::nullopt;
}

bool isForeign(std::int64_t size, const ModelSpec& spec) {
    return std::ranges::find(spec.storage, size) == spec.storage.end();
}

} // namespace tessivo::StorageCheck

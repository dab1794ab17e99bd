#include "kit/hardware/BatteryReading.h"

#include "kit/hardware/RegistryNames.h"
#include "kit/support/Text.h"

#include <algorithm>
#include <cmath>

namespace tessivo {
namespace {

std::optional<std::int64_t> positive(std::optional<std::int64_t> number) {
    return number && *number >= 1 ? number : std::nullopt;
}

std::optional<std::int64_t> fullCharge(const PropertyMap& registry) {
    for (const char* key : {RegistryKey::nominalCapacity, "AppleRawMaxCapacity", "MaxCapacity"})
        if (const auto capacity = positive(integer(registry, key))) return capacity;
    return std::nullopt;
}

std::optional<std::int64_t> designCycles(const PropertyMap& registry) {
    // Only one of the two keys counts: a zero under the first doesn't fall through to the second.
    const auto nine = integer(registry, "DesignCycleCount9C");
    return positive(nine ? nine : integer(registry, "DesignCycleCount70"));
}

bool isPresentBattery(const PropertyMap& powerSource) {
    return text(powerSource, RegistryKey::sourceType) == RegistryKey::internalBattery &&
           boolean(powerSource, RegistryKey::isPresent).value_or(true);
}

} // namespace

std::optional<std::string> BatteryReading::conditionText(const PropertyMap* powerSource) {
    if (!powerSource) return std::nullopt;
    const auto condition = text(*powerSource, RegistryKey::batteryCondition);
    if (condition && !condition->empty()) return condition;
    const auto health = text(*powerSource, RegistryKey::batteryHealth);
    if (health == "Good") return "Normal";
    return health;
}

BatteryReading BatteryReading::make(const PropertyMap* registry, const PropertyMap* powerSource) {
    BatteryReading reading;
    if (registry && boolean(*registry, RegistryKey::batteryInstalled).value_or(false)) {
        reading.present = true;
        reading.source = Source::registry;
        reading.cycleCount = integer(*registry, RegistryKey::cycleCount);
        reading.designCycleCount = designCycles(*registry);
        reading.designCapacity = positive(integer(*registry, RegistryKey::designCapacity));
        reading.fullChargeCapacity = fullCharge(*registry);
        reading.condition = conditionText(powerSource);
    } else if (powerSource && isPresentBattery(*powerSource)) {
        reading.present = true;
        reading.source = Source::powerSources;
        reading.condition = conditionText(powerSource);
    } else if (registry || powerSource) {
        reading.source = Source::registry;
    }
    return reading;
}

std::optional<std::int64_t> BatteryReading::healthPercent() const {
    if (!positive(designCapacity) || !positive(fullChargeCapacity)) return std::nullopt;
    const double percent = double(*fullChargeCapacity) * 100 / double(*designCapacity);
    return std::int64_t(std::min(100.0, std::round(percent)));
}

bool BatteryReading::conditionWarns() const {
    if (!condition) return false;
    const std::string lowered = Text::lowercased(*condition);
    for (const char* word : {"service", "check", "replace", "fail", "poor"})
        if (lowered.find(word) != std::string::npos) return true;
    return false;
}

} // namespace tessivo

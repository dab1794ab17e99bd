#include "app/readers/Readers.h"
#include "kit/hardware/RegistryNames.h"

namespace tessivo {

std::optional<PropertyMap> readBatteryRegistry(const Registry& registry) {
    const auto services = registry.matchingServices(RegistryClass::battery);
    if (!services || services->empty()) return std::nullopt;
    return services->front().properties;
}

std::optional<PropertyMap> readInternalPowerSource(const PowerSources& sources) {
    const auto descriptions = sources.descriptions();
    if (!descriptions) return std::nullopt;
    for (const Property& description : *descriptions) {
        const auto* map = std::get_if<PropertyMap>(&description.value);
        if (map && text(*map, RegistryKey::sourceType) == RegistryKey::internalBattery) return *map;
    }
    return std::nullopt;
}

BatteryReading readBattery(const Registry& registry, const PowerSources& sources) {
    const auto battery = readBatteryRegistry(registry);
    const auto source = readInternalPowerSource(sources);
    return BatteryReading::make(battery ? &*battery : nullptr, source ? &*source : nullptr);
}

} // namespace tessivo

#include "app/readers/Readers.h"
#include "kit/hardware/RegistryNames.h"

#include <algorithm>

namespace tessivo {

std::vector<WiredInterface> readWiredInterfaces(const Registry& registry) {
    std::vector<WiredInterface> interfaces;
    const auto services = registry.matchingServices(RegistryClass::network);
    if (!services) return interfaces;
    for (const RegistryEntry& service : *services) {
        const auto controller = service.properties ? service.parent() : nullptr;
        if (!controller) continue;
        auto wired =
            WiredInterface::make(*service.properties, service.className,
                                 controller->properties.value_or(PropertyMap()), controller->className);
        if (wired) interfaces.push_back(std::move(*wired));
    }
    std::stable_sort(
        interfaces.begin(), interfaces.end(),
        [](const WiredInterface& one, const WiredInterface& other) { return one.bsdName < other.bsdName; });
    return interfaces;
}

} // namespace tessivo

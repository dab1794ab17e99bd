#pragma once

#include "platform/Registry.h"

namespace tessivo {

/// The hardware registry of this Mac. A search finds subclasses too: each entry tells its real class. An
/// entry that goes while it is read has no properties; it doesn't end the list.
class MacRegistry final : public Registry {
public:
    std::optional<std::vector<RegistryEntry>> matchingServices(const std::string& className) const override;
};

/// The power sources of this Mac.
class MacPowerSources final : public PowerSources {
public:
    std::optional<PropertyList> descriptions() const override;
};

} // namespace tessivo

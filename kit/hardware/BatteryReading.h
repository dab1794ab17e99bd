#pragma once

#include "kit/support/Describe.h"
#include "kit/support/Property.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tessivo {

/// What was read of the battery. Capacities are in mAh.
struct BatteryReading {
    enum class Source { registry, powerSources, none };
    BOOST_DESCRIBE_NESTED_ENUM(Source, registry, powerSources, none)

    bool present = false;
    std::optional<std::int64_t> cycleCount;
    std::optional<std::int64_t> designCycleCount;
    std::optional<std::int64_t> designCapacity;
    std::optional<std::int64_t> fullChargeCapacity;
    std::optional<std::string> condition;
    Source source = Source::none;

    /// Joins the registry's figures and the power source's health text; either may be null.
    static BatteryReading make(const PropertyMap* registry, const PropertyMap* powerSource);
    static std::optional<std::string> conditionText(const PropertyMap* powerSource);

    /// Full charge against design, rounded, at most 100; nothing without both figures.
    std::optional<std::int64_t> healthPercent() const;
    /// Whether the condition's words ask for service.
    bool conditionWarns() const;

    bool operator==(const BatteryReading&) const = default;
};
BOOST_DESCRIBE_STRUCT(BatteryReading, (),
                      (present, cycleCount, designCycleCount, designCapacity, fullChargeCapacity, condition,
                       source))

} // namespace tessivo

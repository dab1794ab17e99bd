#include "kit/session/MacIdentity.h"

#include "kit/hardware/MachineInfo.h"

#include <algorithm>
#include <initializer_list>

namespace tessivo {

namespace {

using Kind = std::set<std::string> HardwareKeys::*;
constexpr std::initializer_list<Kind> addresses = {&HardwareKeys::ethernet, &HardwareKeys::wifi};
constexpr std::initializer_list<Kind> drives = {&HardwareKeys::drives};

/// Nothing where none of the kinds is known on both sides.
std::optional<bool> agree(std::initializer_list<Kind> kinds, const HardwareKeys& stored,
                          const HardwareKeys& current) {
    std::optional<bool> agree;
    for (const Kind kind : kinds) {
        const auto &before = stored.*kind, &now = current.*kind;
        if (before.empty() || now.empty()) continue;
        const bool isCommon =
            std::ranges::any_of(before, [&](const std::string& key) { return now.contains(key); });
        agree = agree.value_or(true) && isCommon;
    }
    return agree;
}

std::optional<MacMatch> compareKeys(const HardwareKeys& stored, const HardwareKeys& current) {
    if (const auto same = agree(addresses, stored, current))
        return *same ? MacMatch::sameAddress : MacMatch::different;
    if (const auto same = agree(drives, stored, current))
        return *same ? MacMatch::sameDrive : MacMatch::different;
    return std::nullopt;
}

} // namespace

MacMatch compare(const MacIdentity& stored, const MacIdentity& current) {
    if (stored.serial && current.serial)
        return stored.serial == current.serial ? MacMatch::sameSerial : MacMatch::different;
    const bool bothAbsent = !stored.serial && !current.serial;
    if (!current.keys) return bothAbsent ? MacMatch::nothingAgainst : MacMatch::different;

    const bool modelIsKnown =
        stored.modelID != MachineInfo::unknownModel && current.modelID != MachineInfo::unknownModel;
    if (modelIsKnown && stored.modelID != current.modelID) return MacMatch::different;
    if (const auto match = compareKeys(stored.keys.value_or(HardwareKeys{}), *current.keys)) return *match;
    if (!bothAbsent) return MacMatch::different;
    return modelIsKnown ? MacMatch::sameModel : MacMatch::nothingAgainst;
}

HardwareKeys merged(const HardwareKeys& before, const HardwareKeys& now) {
    HardwareKeys keys = now;
    for (const Kind kind : {&HardwareKeys::ethernet, &HardwareKeys::wifi, &HardwareKeys::drives})
        if ((keys.*kind).empty()) keys.*kind = before.*kind;
    return keys;
}

} // namespace tessivo

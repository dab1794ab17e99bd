#include "kit/session/MacIdentity.h"

#include "kit/hardware/MachineInfo.h"

#include <algorithm>
#include <initializer_list>

namespace tessivo {

namespace {

using Kind = std::set<std::string> HardwareKeys::*;
constexpr std::initializer_list<Kind> kinds = {&HardwareKeys::ethernet, &HardwareKeys::wifi,
                                               &HardwareKeys::drives};

/// Nothing where no kind is known on both sides.
std::optional<bool> keysAgree(const HardwareKeys& stored, const HardwareKeys& current) {
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

} // namespace

MacMatch compare(const MacIdentity& stored, const MacIdentity& current) {
    if (stored.serial && current.serial)
        return stored.serial == current.serial ? MacMatch::sameSerial : MacMatch::different;
    const bool bothAbsent = !stored.serial && !current.serial;
    if (!current.keys) return bothAbsent ? MacMatch::nothingAgainst : MacMatch::different;

    const bool modelIsKnown =
        stored.modelID != MachineInfo::unknownModel && current.modelID != MachineInfo::unknownModel;
    const bool modelDiffers = modelIsKnown && stored.modelID != current.modelID;
    const auto agree = keysAgree(stored.keys.value_or(HardwareKeys{}), *current.keys);
    if (!bothAbsent) return agree == true && !modelDiffers ? MacMatch::sameKeys : MacMatch::different;
    if (agree) return *agree ? MacMatch::sameKeys : MacMatch::different;
    if (modelDiffers) return MacMatch::different;
    return modelIsKnown ? MacMatch::sameModel : MacMatch::nothingAgainst;
}

HardwareKeys merged(const HardwareKeys& before, const HardwareKeys& now) {
    HardwareKeys keys = now;
    for (const Kind kind : kinds)
        if ((keys.*kind).empty()) keys.*kind = before.*kind;
    return keys;
}

} // namespace tessivo

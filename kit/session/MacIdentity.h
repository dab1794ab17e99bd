#pragma once

#include "kit/hardware/HardwareKeys.h"

#include <optional>
#include <string>

namespace tessivo {

/// What is known of which Mac this is. `keys` is absent where the platform has none to give; a platform
/// that gives keys but couldn't read one has empty sets.
struct MacIdentity {
    std::optional<std::string> serial;
    std::string modelID;
    std::optional<HardwareKeys> keys;
};

/// What speaks for a stored session being of this Mac, the weakest first. Only `different` says that it
/// isn't.
enum class MacMatch { different, nothingAgainst, sameModel, sameKeys, sameSerial };

/// Two serial numbers decide. Where both are absent, every kind of key that is known on both sides has to
/// agree, which one common value does; with no such kind the model decides, and an unknown model never
/// differs. A serial number that came or went is no difference where a key and the model agree. Where the
/// platform gives no keys the serial numbers alone decide, and two absent ones are equal.
MacMatch compare(const MacIdentity& stored, const MacIdentity& current);

/// The keys to store: of each kind what is known now, else what was known before.
HardwareKeys merged(const HardwareKeys& before, const HardwareKeys& now);

} // namespace tessivo

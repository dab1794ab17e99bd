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
enum class MacMatch { different, nothingAgainst, sameModel, sameDrive, sameAddress, sameSerial };

/// Two serial numbers decide. Else two known models that differ are two Macs, whatever was moved from one to
/// the other. Else the network addresses decide: every kind that is known on both sides has to agree, which
/// one common value does. Where no kind is, the drives decide in the same way; a drive that was replaced
/// makes no other Mac. With no key known on both sides the model decides, and an unknown model never
/// differs; but a serial number that came or went takes a key that agrees. Where the platform gives no keys
/// the serial numbers alone decide, and two absent ones are equal.
MacMatch compare(const MacIdentity& stored, const MacIdentity& current);

/// The keys to store: of each kind what is known now, else what was known before.
HardwareKeys merged(const HardwareKeys& before, const HardwareKeys& now);

} // namespace tessivo

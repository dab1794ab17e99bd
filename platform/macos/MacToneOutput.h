#pragma once

#include "platform/AudioObjects.h"

namespace tessivo {

/// Tones through an output unit of the system. Without a device the unit follows the person's choice of
/// output.
class MacToneOutput final : public ToneOutput {
public:
    std::unique_ptr<ToneEngine> makeEngine() override;
};

} // namespace tessivo

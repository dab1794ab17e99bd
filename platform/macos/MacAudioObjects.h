#pragma once

#include "platform/AudioObjects.h"

namespace tessivo {

/// The audio objects of this Mac, every address on the main element.
class MacAudioObjects final : public AudioObjects {
public:
    bool hasProperty(const AudioAddress& address) const override;
    std::optional<std::uint32_t> propertyDataSize(const AudioAddress& address) const override;
    /// Nothing for a property that holds a text.
    std::optional<std::vector<std::uint32_t>> numbers(const AudioAddress& address) const override;
    /// Nothing for a property that holds no text.
    std::optional<std::string> text(const AudioAddress& address) const override;
    std::optional<std::string> translatedText(const AudioAddress& address, std::uint32_t code) const override;
};

} // namespace tessivo

#pragma once

#include "platform/AudioObjects.h"

namespace tessivo {

/// The audio objects of this Mac, every address on the main element.
class MacAudioObjects final : public AudioObjects {
public:
    bool hasProperty(std::uint32_t object, std::uint32_t selector, std::uint32_t scope) const override;
    std::optional<std::uint32_t> propertyDataSize(std::uint32_t object, std::uint32_t selector,
                                                  std::uint32_t scope) const override;
    /// Nothing for a property that holds a text.
    std::optional<std::vector<std::uint32_t>> numbers(std::uint32_t object, std::uint32_t selector,
                                                      std::uint32_t scope) const override;
    /// Nothing for a property that holds no text.
    std::optional<std::string> text(std::uint32_t object, std::uint32_t selector,
                                    std::uint32_t scope) const override;
    std::optional<std::string> translatedText(std::uint32_t object, std::uint32_t selector,
                                              std::uint32_t scope, std::uint32_t code) const override;
};

} // namespace tessivo

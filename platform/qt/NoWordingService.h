#pragma once

#include "platform/Desktop.h"

namespace tessivo {

/// No language model of the computer's own: never available.
class NoWordingService final : public WordingService {
public:
    WordingAvailability availability() const override { return WordingAvailability::unsupported; }
    /// A model whose every rewording throws.
    std::shared_ptr<WordingModel> makeModel() override;
};

} // namespace tessivo

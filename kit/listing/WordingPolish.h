#pragma once

#include "kit/listing/WordingGuard.h"

#include <variant>

namespace tessivo {

/// Something that rewords a text. The call blocks and may throw; its caller runs it off the main thread.
class WordingModel {
public:
    virtual ~WordingModel() = default;
    virtual std::string rewrite(const std::string& instructions, const std::string& text) = 0;
};

/// What became of a rewording.
struct PolishResult {
    struct Polished {
        std::string text;
        bool operator==(const Polished&) const = default;
    };
    struct Discarded {
        std::vector<GuardIssue> issues; ///< never empty
        bool operator==(const Discarded&) const = default;
    };
    struct Failed {
        std::string description;
        bool operator==(const Failed&) const = default;
    };
    std::variant<Polished, Discarded, Failed> outcome;

    bool operator==(const PolishResult&) const = default;
};

namespace WordingPolish {
/// What the model is told, in English for either language.
std::string instructions(const ListingWriteUp& writeUp);
/// Never throws. Runs as long as the model does.
PolishResult polish(const ListingWriteUp& writeUp, WordingModel& model);
} // namespace WordingPolish

/// Why rewording is or isn't to be had, and the words for it.
enum class WordingAvailability { available, unsupported, turnedOff, notReady };
/// Absent when available, else the text in the language in force.
std::optional<std::string> availabilityMessage(WordingAvailability availability);

} // namespace tessivo

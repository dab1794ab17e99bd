#pragma once

#include "kit/report/ConditionReport.h"

namespace tessivo {

/// What a rewording of a listing is bound to keep.
struct WriteUpFacts {
    std::vector<std::string> fixed;   ///< phrases, in order of first appearance
    std::vector<std::string> numbers; ///< all number tokens of the text, sorted
    std::int64_t problems = 0;

    bool operator==(const WriteUpFacts&) const = default;
};

/// A listing description and the facts that bind it.
struct ListingWriteUp {
    std::string headline;
    std::string text;
    WriteUpFacts facts;
    std::string language; ///< "en" or "es"

    bool operator==(const ListingWriteUp&) const = default;
};

namespace ListingTemplate {
/// The description in the language in force. Can't fail.
ListingWriteUp make(const ConditionReport& report, bool includeSerial);
} // namespace ListingTemplate

} // namespace tessivo

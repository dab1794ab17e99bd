#pragma once

#include "kit/listing/ListingTemplate.h"
#include "kit/support/Describe.h"

#include <compare>

namespace tessivo {

/// One reason to throw a rewording away. `empty` and `tooLong` have no payload.
struct GuardIssue {
    enum class Case { missingFact, addedNumber, missingNumber, addedClaim, empty, tooLong };
    BOOST_DESCRIBE_NESTED_ENUM(Case, missingFact, addedNumber, missingNumber, addedClaim, empty, tooLong)

    Case kind{};
    std::string payload;

    /// What the seller reads, in the language in force.
    std::string message() const;

    auto operator<=>(const GuardIssue&) const = default;
};

/// Compares a rewording with the write-up it was made from. Pure, any thread.
namespace WordingGuard {

/// Every finding in the guard's order; empty if the text passes. Facts and numbers have to stand as they
/// are; a claim is found however it is written, by whole words, unless the write-up makes it itself.
std::vector<GuardIssue> check(const std::string& text, const ListingWriteUp& writeUp);

/// The comparison form: lower case, straight quotes and dashes, no emphasis marks, single blanks.
std::string normalized(const std::string& text);

} // namespace WordingGuard
} // namespace tessivo

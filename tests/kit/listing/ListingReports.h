#pragma once

#include "kit/Samples.h"
#include "kit/listing/Lang.h"
#include "kit/listing/WordingGuard.h"

#include <ostream>

namespace tessivo {
/// How a failed expectation shows a finding.
inline void PrintTo(const GuardIssue& issue, std::ostream* out) {
    *out << rawValue(issue.kind) << "(" << issue.payload << ")";
}
} // namespace tessivo

/// Hand-made reports and their write-ups, for the tests of the listing.
namespace tessivo::ListingReports {

inline ConditionReport with(std::vector<TestResult> results, std::string notes = {}) {
    ConditionReport report;
    report.created = *Date::fromISO8601("2026-03-05T20:00:00Z");
    report.machine = Samples::machine();
    report.results = std::move(results);
    report.notes = std::move(notes);
    return report;
}

/// One result of every status, a problem with and without a note, and a claim of the seller's own.
inline ConditionReport mixed() {
    return with(
        {{TestID::identity, TestStatus::works, "Serial read", {}, std::nullopt},
         {TestID::enrollment, TestStatus::works, "Not enrolled", {}, std::nullopt},
         {TestID::activationLock, TestStatus::checkByHand, "Look in System Information", {}, std::nullopt},
         {TestID::keyboard, TestStatus::problem, "Marked as a problem", {}, "The “N” key sticks — often"},
         {TestID::trackpad, TestStatus::works, "Every part of the surface responds", {}, std::nullopt},
         {TestID::display,
          TestStatus::problem,
          "A dark dot near the edge",
          {"Shown: 6 colors"},
          std::nullopt},
         {TestID::speakers, TestStatus::notRun, "Not tested yet", {}, std::nullopt},
         {TestID::headphones, TestStatus::notIncluded, "Not included", {}, std::nullopt},
         {TestID::cameras, TestStatus::unfinished, "Confirm the picture", {}, std::nullopt},
         {TestID::battery, TestStatus::works, "143 of 1000 cycles, 90% of 4563 mAh", {}, std::nullopt}},
        "Works great for school.\nComes with its box & a %@ sticker.");
}

/// Everything works; no notes, no chip, no storage, and a model that the catalog doesn't know.
inline ConditionReport clean() {
    ConditionReport report =
        with({{TestID::keyboard, TestStatus::works, "All 64 keys seen", {}, std::nullopt},
              {TestID::battery, TestStatus::works, "412 cycles, 88% health", {}, std::nullopt}});
    report.machine.modelID = "Mac99,7";
    report.machine.chip = std::nullopt;
    report.machine.storageBytes = std::nullopt;
    return report;
}

inline ListingWriteUp writeUp(const ConditionReport& report, const char* language = "en",
                              bool serial = false) {
    return Lang::with(language, [&] { return ListingTemplate::make(report, serial); });
}

} // namespace tessivo::ListingReports

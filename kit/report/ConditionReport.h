#pragma once

#include "kit/hardware/MachineInfo.h"
#include "kit/report/Handover.h"
#include "kit/support/Date.h"
#include "kit/support/Uuid.h"
#include "kit/vocabulary/TestResult.h"

namespace tessivo {

/// One step of the buyer's quick check.
struct PickupStep {
    std::string title;
    std::string expect;
    std::int64_t seconds = 0;

    bool operator==(const PickupStep&) const = default;
};
BOOST_DESCRIBE_STRUCT(PickupStep, (), (title, expect, seconds))

/// The frozen outcome of one round of testing. Everything after the session reads this alone.
struct ConditionReport {
    Uuid id;
    Date created;
    MachineInfo machine;
    std::vector<TestResult> results;
    std::vector<PickupStep> pickup;
    std::string appVersion;
    std::string notes;
    std::optional<std::vector<HandoverLine>> handover;

    std::string title() const; ///< "Condition report: MacBook Air (M2, 2022)"
    const TestResult* result(TestID test) const;
    std::int64_t count(TestStatus status) const;
    std::string countsText() const; ///< "11 work, 1 problem"
    std::int64_t pickupSeconds() const;
    /// Whole minutes for the quick check, rounded up, at least 1.
    std::int64_t pickupMinutes() const;
    /// "Condition Report " and the serial, or the model identifier: what a saved file is offered as.
    std::string baseFileName() const;

    bool operator==(const ConditionReport&) const = default;
};
BOOST_DESCRIBE_STRUCT(ConditionReport, (),
                      (id, created, machine, results, pickup, appVersion, notes, handover))

} // namespace tessivo

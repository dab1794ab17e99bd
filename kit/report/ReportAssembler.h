#pragma once

#include "kit/report/ConditionReport.h"
#include "kit/session/SessionState.h"

/// Freezes a session into a report. Pure but for the fresh random id; any thread.
namespace tessivo::ReportAssembler {

/// What the session says at that moment. The notes are kept but for blanks and line breaks at their ends.
ConditionReport make(const SessionState& state, Date at, const std::string& appVersion,
                     const std::string& notes);
/// The buyer's quick check of a machine with these results, in the order in which it is done.
std::vector<PickupStep> pickupSteps(const MachineInfo& machine, const std::vector<TestResult>& results);
/// The test that a step repeats, where there is one.
std::optional<TestID> testOf(const PickupStep& step);

} // namespace tessivo::ReportAssembler

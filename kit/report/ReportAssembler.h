#pragma once

#include "kit/report/ConditionReport.h"
#include "kit/session/SessionState.h"

/// Freezes a session into a report. Pure but for the fresh random id; any thread.
namespace tessivo::ReportAssembler {

ConditionReport make(const SessionState& state, Date at, const std::string& appVersion,
                     const std::string& notes);
std::vector<PickupStep> pickupSteps(const MachineInfo& machine, const std::vector<TestResult>& results);

} // namespace tessivo::ReportAssembler

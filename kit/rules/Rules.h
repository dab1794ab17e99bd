#pragma once

#include "kit/session/SessionState.h"

/// Pure functions from what a session holds to one result per test. They never fail, do no input or
/// output, and are the only way to a result. Any thread.
namespace tessivo::Rules {

/// The rule's finding with the person's override applied. Answers for all fourteen tests.
TestResult result(TestID test, const SessionState& state);

/// One result for each of `state.tests()`, in that order.
std::vector<TestResult> results(const SessionState& state);

/// The override's say over a rule's result.
TestResult apply(const std::optional<UserOverride>& override, TestResult result);

TestResult identity(const MachineInfo& machine);
TestResult enrollment(const std::optional<EnrollmentStatus>& enrollment, bool checked);
TestResult activationLock(ActivationLockAnswer answer);
TestResult keyboard(const KeyboardTest& test);
TestResult trackpad(const TrackpadTest& test);
TestResult display(const DisplayTest& test);
TestResult speakers(const SpeakerTest& test);
TestResult headphones(const std::optional<HeadphoneTest>& test);
TestResult microphones(const std::vector<MicReading>& readings, bool listed, bool denied,
                       std::optional<MacKind> kind);
TestResult cameras(const std::vector<CameraReading>& readings, bool listed, bool denied,
                   std::optional<MacKind> kind);
TestResult ports(const std::vector<PortSlot>& slots);
TestResult ethernet(const std::optional<EthernetTest>& test, std::optional<MacKind> kind);
TestResult storage(std::optional<std::int64_t> bytes, const ModelSpec* row,
                   std::optional<std::int64_t> listed);
TestResult battery(const std::optional<BatteryReading>& reading, std::optional<MacKind> kind);

} // namespace tessivo::Rules

#include "kit/rules/Rules.h"

#include "kit/support/Text.h"

namespace tessivo::Rules {
namespace {

TestResult finding(TestID test, const SessionState& state) {
    switch (test) {
    case TestID::identity:
        return identity(state.machine);
    case TestID::enrollment:
        return enrollment(state.enrollment, state.enrollmentChecked);
    case TestID::activationLock:
        return activationLock(state.activationLock);
    case TestID::keyboard:
        return keyboard(state.keyboard);
    case TestID::trackpad:
        return trackpad(state.trackpad);
    case TestID::display:
        return display(state.display);
    case TestID::speakers:
        return speakers(state.speakers);
    case TestID::headphones:
        return headphones(state.headphones);
    case TestID::microphones:
        return microphones(state.microphones, state.microphonesListed, state.microphoneDenied, state.kind());
    case TestID::cameras:
        return cameras(state.cameras, state.camerasListed, state.cameraDenied, state.kind());
    case TestID::ports:
        return ports(state.ports.slots);
    case TestID::ethernet:
        return ethernet(state.ethernet, state.kind());
    case TestID::storage:
        return storage(state.machine.storageBytes, SpecCatalog::spec(state.machine.modelID),
                       state.listedStorageGB);
    case TestID::battery:
        return battery(state.battery, state.kind());
    }
    return {test, TestStatus::notRun, "Not run"};
}

} // namespace

TestResult result(TestID test, const SessionState& state) {
    const auto found = state.overrides.find(test);
    if (found == state.overrides.end()) return finding(test, state);
    return apply(found->second, finding(test, state));
}

std::vector<TestResult> results(const SessionState& state) {
    std::vector<TestResult> all;
    for (const TestID test : state.tests())
        all.push_back(result(test, state));
    return all;
}

TestResult apply(const std::optional<UserOverride>& override, TestResult result) {
    if (!override) return result;
    if (override->notIncluded)
        return {result.test, TestStatus::notIncluded, "Not part of this sale", {}, std::nullopt};

    std::string note = Text::trimmed(override->problem.value_or(""));
    if (note.empty()) return result;
    result.note = std::move(note);
    if (result.status == TestStatus::problem) return result;

    result.status = TestStatus::problem;
    result.details.insert(result.details.begin(), "The test itself: " + result.summary);
    result.summary = "Problem noted by the person testing";
    return result;
}

} // namespace tessivo::Rules

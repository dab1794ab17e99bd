#include "kit/rules/Rules.h"
#include "kit/support/Text.h"

#include <algorithm>

namespace tessivo::Rules {
namespace {

TestResult noDevice(TestID test, const std::string& word, std::optional<MacKind> kind) {
    if (!kind)
        return {test, TestStatus::checkByHand, "No " + word + " found. Check whether this model has one."};
    if (*kind == MacKind::desktop)
        return {test, TestStatus::notIncluded, "None built in (Mac mini, Mac Studio and Mac Pro have none)"};
    return {test, TestStatus::problem, "No " + word + " found"};
}

TestResult accessDenied(TestID test, const std::string& device) {
    return {test,
            TestStatus::checkByHand,
            device + " access is off",
            {"Turn on Tessivo in System Settings › Privacy & Security › " + device + ", then test again."}};
}

std::string outcome(const MicReading& reading) {
    if (reading.failed) return "couldn't open";
    if (!reading.peak) return "not listened yet";
    return "loudest " + Text::whole(*reading.peak) + " dB";
}

std::string outcome(const CameraReading& reading) {
    if (reading.failed) return "couldn't open";
    if (reading.answer == ManualAnswer::problem) return "picture had a problem";
    if (reading.answer == ManualAnswer::works) return "picture looked right";
    return reading.framesSeen ? "sent a picture" : "not opened yet";
}

} // namespace

TestResult microphones(const std::vector<MicReading>& readings, bool listed, bool denied,
                       std::optional<MacKind> kind) {
    if (denied) return accessDenied(TestID::microphones, "Microphone");
    if (!listed) return {TestID::microphones, TestStatus::notRun, "Not run"};
    if (readings.empty()) return noDevice(TestID::microphones, "microphone", kind);

    std::vector<std::string> details;
    std::vector<std::string> failed;
    for (const MicReading& reading : readings) {
        details.push_back(reading.name + ": " + outcome(reading));
        if (reading.failed) failed.push_back(reading.name);
    }

    if (!failed.empty())
        return {TestID::microphones, TestStatus::problem, "Couldn't open: " + Text::joined(failed, ", "),
                std::move(details)};
    if (std::ranges::all_of(readings, &MicReading::heardSound))
        return {TestID::microphones, TestStatus::works,
                readings.size() == 1
                    ? "Picked up sound"
                    : "All " + std::to_string(readings.size()) + " microphones picked up sound",
                std::move(details)};
    if (std::ranges::any_of(readings, [](const MicReading& reading) { return reading.peak.has_value(); }))
        return {TestID::microphones, TestStatus::unfinished, "Speak or clap near the Mac",
                std::move(details)};
    return {TestID::microphones, TestStatus::notRun, "Not run", std::move(details)};
}

TestResult cameras(const std::vector<CameraReading>& readings, bool listed, bool denied,
                   std::optional<MacKind> kind) {
    if (denied) return accessDenied(TestID::cameras, "Camera");
    if (!listed) return {TestID::cameras, TestStatus::notRun, "Not run"};
    if (readings.empty()) return noDevice(TestID::cameras, "camera", kind);

    std::vector<std::string> details;
    std::vector<std::string> faults;
    for (const CameraReading& reading : readings) {
        details.push_back(reading.name + ": " + outcome(reading));
        if (reading.failed || reading.answer == ManualAnswer::problem) faults.push_back(reading.name);
    }

    if (!faults.empty())
        return {TestID::cameras, TestStatus::problem, "Problem: " + Text::joined(faults, ", "),
                std::move(details)};
    if (std::ranges::all_of(readings, [](const CameraReading& reading) {
            return reading.framesSeen && reading.answer == ManualAnswer::works;
        }))
        return {TestID::cameras, TestStatus::works,
                readings.size() == 1 ? "Picture looked right"
                                     : "All " + std::to_string(readings.size()) + " cameras looked right",
                std::move(details)};
    if (std::ranges::any_of(readings, &CameraReading::framesSeen))
        return {TestID::cameras, TestStatus::unfinished, "Say how the picture looked", std::move(details)};
    return {TestID::cameras, TestStatus::notRun, "Not run", std::move(details)};
}

} // namespace tessivo::Rules

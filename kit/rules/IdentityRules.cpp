#include "kit/rules/RuleTexts.h"
#include "kit/rules/Rules.h"

namespace tessivo::Rules {

const char* const activationLockHowTo =
    "Hold Option and choose Apple menu › System Information. Under Hardware, Activation Lock Status should "
    "read Disabled.";

TestResult identity(const MachineInfo& machine) {
    const ModelSpec* row = SpecCatalog::spec(machine.modelID);

    std::vector<std::string> details = {"Model ID: " + machine.modelID};
    if (machine.serial) details.push_back("Serial number: " + *machine.serial);
    if (machine.chip) details.push_back("Chip: " + *machine.chip);
    details.push_back("Memory: " + machine.memoryText());
    details.push_back("macOS: " + machine.osVersion);
    if (!row)
        details.push_back("Model ID " + machine.modelID +
                          " isn't in Tessivo's model list; About This Mac shows its name.");

    if (!machine.serial || machine.serial->empty())
        return {TestID::identity, TestStatus::checkByHand,
                "Couldn't read the serial number. Apple menu › About This Mac shows it.", std::move(details)};
    return {TestID::identity, TestStatus::works,
            (row ? row->name : machine.modelID) + ", serial " + *machine.serial, std::move(details)};
}

TestResult enrollment(const std::optional<EnrollmentStatus>& enrollment, bool checked) {
    if (!checked) return {TestID::enrollment, TestStatus::notRun, "Not read yet"};
    if (!enrollment)
        return {
            TestID::enrollment,
            TestStatus::checkByHand,
            "Couldn't read it here. Check by hand.",
            {"Open System Settings › General › Device Management. A Mac that isn't managed lists no profiles "
             "there."}};

    std::vector<std::string> details = {std::string("Enrolled via DEP: ") +
                                            (enrollment->enrolledViaDEP ? "Yes" : "No"),
                                        "MDM enrollment: " + enrollment->mdmDetail};
    if (enrollment->isManaged())
        return {
            TestID::enrollment, TestStatus::problem,
            "Enrolled in device management. An organization can control this Mac; ask the seller to have it "
            "released.",
            std::move(details)};
    details.push_back(
        "A Mac an organization owns can still enroll after it's erased. Ask where it came from.");
    return {TestID::enrollment, TestStatus::works, "Not enrolled in device management", std::move(details)};
}

TestResult activationLock(ActivationLockAnswer answer) {
    switch (answer) {
    case ActivationLockAnswer::disabled:
        return {TestID::activationLock,
                TestStatus::works,
                "System Information showed Disabled",
                {"Checked by hand in System Information."}};
    case ActivationLockAnswer::enabled:
        return {
            TestID::activationLock,
            TestStatus::problem,
            "System Information showed Enabled",
            {"The seller must turn off Find My and sign out of their Apple Account before handing it over."}};
    case ActivationLockAnswer::unanswered:
        break;
    }
    return {TestID::activationLock,
            TestStatus::checkByHand,
            "Check by hand: apps can't read it.",
            {activationLockHowTo}};
}

} // namespace tessivo::Rules

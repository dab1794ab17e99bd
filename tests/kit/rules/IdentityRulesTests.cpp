#include "kit/rules/Rules.h"
#include "tests/kit/rules/Printed.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

TEST(IdentityRule, needsASerialAndNamesTheModel) {
    struct Row {
        MachineInfo machine;
        const char* expected;
    };
    const std::vector<Row> rows = {
        {{"Mac14,2", "C02ABC", "Apple M2", 8'589'934'592, "macOS 15.3.1 (24D70)", {}},
         "works: MacBook Air (M2, 2022), serial C02ABC | Model ID: Mac14,2 | Serial number: C02ABC | "
         "Chip: Apple M2 | Memory: 8 GB | macOS: macOS 15.3.1 (24D70)"},
        {{"Mac17,1", "C02ABC", {}, 17'179'869'184, "macOS 26.0", {}},
         "works: Mac17,1, serial C02ABC | Model ID: Mac17,1 | Serial number: C02ABC | Memory: 16 GB | "
         "macOS: macOS 26.0 | Model ID Mac17,1 isn't in Tessivo's model list; About This Mac shows its "
         "name."},
        {{"Mac14,2", {}, "Apple M2", 8'589'934'592, "macOS 15.0", {}},
         "checkByHand: Couldn't read the serial number. Apple menu › About This Mac shows it. | "
         "Model ID: Mac14,2 | Chip: Apple M2 | Memory: 8 GB | macOS: macOS 15.0"},
        {{"Mac14,2", "", {}, 8'589'934'592, "macOS 15.0", {}},
         "checkByHand: Couldn't read the serial number. Apple menu › About This Mac shows it. | "
         "Model ID: Mac14,2 | Serial number:  | Memory: 8 GB | macOS: macOS 15.0"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(printed(Rules::identity(row.machine)), row.expected);
}

TEST(EnrollmentRule, tellsNeverReadFromUnreadable) {
    struct Row {
        std::optional<EnrollmentStatus> enrollment;
        bool checked;
        const char* expected;
    };
    const std::vector<Row> rows = {
        {std::nullopt, false, "notRun: Not read yet"},
        {EnrollmentStatus{true, true, "Yes"}, false, "notRun: Not read yet"},
        {std::nullopt, true,
         "checkByHand: Couldn't read it here. Check by hand. | Open System Settings › General › Device "
         "Management. A Mac that isn't managed lists no profiles there."},
        {EnrollmentStatus{true, false, "No"}, true,
         "problem: Enrolled in device management. An organization can control this Mac; ask the seller to "
         "have it "
         "released. | Enrolled via DEP: Yes | MDM enrollment: No"},
        {EnrollmentStatus{false, true, "Yes (User Approved)"}, true,
         "problem: Enrolled in device management. An organization can control this Mac; ask the seller to "
         "have it "
         "released. | Enrolled via DEP: No | MDM enrollment: Yes (User Approved)"},
        {EnrollmentStatus{false, false, "No"}, true,
         "works: Not enrolled in device management | Enrolled via DEP: No | MDM enrollment: No | A Mac an "
         "organization owns can still enroll after it's erased. Ask where it came from."},
    };
    for (const Row& row : rows)
        EXPECT_EQ(printed(Rules::enrollment(row.enrollment, row.checked)), row.expected);
}

TEST(ActivationLockRule, restsOnWhatThePersonReadOff) {
    EXPECT_EQ(printed(Rules::activationLock(ActivationLockAnswer::unanswered)),
              "checkByHand: Check by hand: apps can't read it. | Hold Option and choose Apple menu › System "
              "Information. Under Hardware, Activation Lock Status should read Disabled.");
    EXPECT_EQ(printed(Rules::activationLock(ActivationLockAnswer::disabled)),
              "works: System Information showed Disabled | Checked by hand in System Information.");
    EXPECT_EQ(
        printed(Rules::activationLock(ActivationLockAnswer::enabled)),
        "problem: System Information showed Enabled | The seller must turn off Find My and sign out of their "
        "Apple Account before handing it over.");
}

} // namespace
} // namespace tessivo

#include "kit/rules/Rules.h"
#include "tests/kit/rules/Printed.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

SessionState newSession(const char* modelID) {
    MachineInfo machine;
    machine.modelID = modelID;
    return SessionState(machine, Date{});
}

TEST(Rules, onlyALaptopHasNoEthernetTest) {
    const std::pair<const char*, bool> rows[] = {{"Mac14,2", true},     {"MacBookPro99,1", true},
                                                 {"Macmini8,1", false}, {"iMac19,1", false},
                                                 {"Mac17,1", false},    {"Unknown", false}};
    for (const auto& [modelID, isLaptop] : rows) {
        SCOPED_TRACE(modelID);
        const SessionState state = newSession(modelID);
        const auto all = allCases<TestID>();
        std::vector<TestID> expected(all.begin(), all.end());
        if (isLaptop) std::erase(expected, TestID::ethernet);
        EXPECT_EQ(state.tests(), expected);

        std::vector<TestID> judged;
        for (const TestResult& result : Rules::results(state))
            judged.push_back(result.test);
        EXPECT_EQ(judged, expected);
    }
}

TEST(Rules, anOverrideNeverMakesATestBetter) {
    const std::string works = "works: Fine | A detail";
    const std::string problem = "problem: Broken | A detail";
    const std::string left = "notIncluded: Not part of this sale";
    const std::tuple<std::optional<UserOverride>, std::string, std::string> rows[] = {
        {std::nullopt, works, problem},
        {UserOverride{false, std::nullopt}, works, problem},
        {UserOverride{false, ""}, works, problem},
        {UserOverride{false, " \t\r\n\u2028\u00A0"}, works, problem},
        {UserOverride{true, std::nullopt}, left, left},
        {UserOverride{true, "Scratched"}, left, left},
        {UserOverride{false, "\n  Sticky  key \u00A0\n"},
         "problem: Problem noted by the person testing | The test itself: Fine | A detail | note: Sticky  "
         "key",
         "problem: Broken | A detail | note: Sticky  key"},
    };
    for (const auto& [override, onWorks, onProblem] : rows) {
        const TestResult fine{TestID::cameras, TestStatus::works, "Fine", {"A detail"}, {}};
        const TestResult broken{TestID::cameras, TestStatus::problem, "Broken", {"A detail"}, {}};
        EXPECT_EQ(printed(Rules::apply(override, fine)), onWorks);
        EXPECT_EQ(printed(Rules::apply(override, broken)), onProblem);
    }
}

TEST(Rules, anOverrideCountsForItsOwnTestAlone) {
    SessionState state = newSession("Mac14,2");
    state.activationLock = ActivationLockAnswer::enabled;
    state.overrides[TestID::activationLock] = {true, {}};
    state.overrides[TestID::identity] = {false, "Engraved lid"};
    EXPECT_EQ(printed(Rules::result(TestID::activationLock, state)), "notIncluded: Not part of this sale");
    EXPECT_EQ(Rules::result(TestID::identity, state).note, "Engraved lid");
    EXPECT_EQ(Rules::result(TestID::identity, state).test, TestID::identity);
    EXPECT_EQ(Rules::result(TestID::display, state).status, TestStatus::notRun);
}

TEST(Rules, aModelWithoutSizesCallsEveryDriveForeign) {
    ModelSpec row;
    EXPECT_EQ(Rules::storage(512'000'000'000, &row, 512).status, TestStatus::problem);
    row.replaceableStorage = true;
    EXPECT_EQ(Rules::storage(512'000'000'000, &row, 512).status, TestStatus::checkByHand);
}

} // namespace
} // namespace tessivo

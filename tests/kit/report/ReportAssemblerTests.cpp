#include "kit/Samples.h"
#include "kit/report/ReportAssembler.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>

namespace tessivo {
namespace {

using Status = TestStatus;

std::vector<TestResult> results(std::vector<std::pair<TestID, Status>> statuses) {
    std::vector<TestResult> results;
    for (const auto& [test, status] : statuses)
        results.push_back({test, status, "Summary", {}, {}});
    return results;
}

bool has(const std::vector<PickupStep>& steps, const std::string& title) {
    return std::ranges::any_of(steps, [&](const PickupStep& step) { return step.title == title; });
}

TEST(ReportAssembler, freezesTheSession) {
    SessionState state = Samples::session();
    const Date moment{794'448'429};
    const auto report = ReportAssembler::make(state, moment, "1.0", "\n\t Two\n scuffs \u2028\n");
    EXPECT_EQ(report.created, moment);
    EXPECT_EQ(report.machine, state.machine);
    EXPECT_EQ(report.notes, "Two\n scuffs");
    EXPECT_EQ(report.results.size(), 13u);
    EXPECT_EQ(report.title(), "Condition report: MacBook Air (M2, 2022)");
    EXPECT_EQ(report.pickupSeconds(), 120);
    EXPECT_EQ(report.pickupMinutes(), 2);
    EXPECT_EQ(report.baseFileName(), "Condition Report J4N7WQX2PL");
    EXPECT_EQ(report.handover->size(), 5u);
    EXPECT_EQ(report.result(TestID::display)->status, Status::problem);
    EXPECT_EQ(report.result(TestID::ethernet), nullptr);

    state.handover.reset();
    state.machine.serial.reset();
    const auto next = ReportAssembler::make(state, moment, "1.0", " \n ");
    EXPECT_NE(next.id, report.id);
    EXPECT_EQ(next.notes, "");
    EXPECT_EQ(next.handover, std::nullopt);
    EXPECT_EQ(next.baseFileName(), "Condition Report Mac14,2");
    EXPECT_EQ(next.pickup[1].expect,
              "Model ID Mac14,2, serial as in About This Mac; About This Mac shows the same serial");
}

TEST(ReportAssembler, offersOnlyTheChecksThatABuyerCanRepeat) {
    const MachineInfo machine = Samples::machine();
    const std::tuple<TestID, Status, const char*, bool> rows[] = {
        {TestID::enrollment, Status::works, "Device management", true},
        {TestID::enrollment, Status::problem, "Device management", true},
        {TestID::enrollment, Status::checkByHand, "Device management", false},
        {TestID::enrollment, Status::notIncluded, "Device management", false},
        {TestID::display, Status::problem, "Display colors", true},
        {TestID::display, Status::notIncluded, "Display colors", false},
        {TestID::speakers, Status::notIncluded, "Speakers", false},
        {TestID::keyboard, Status::notIncluded, "Keyboard", false},
        {TestID::cameras, Status::works, "Camera", true},
        {TestID::cameras, Status::problem, "Camera", false}};
    for (const auto& [test, status, title, offered] : rows)
        EXPECT_EQ(has(ReportAssembler::pickupSteps(machine, results({{test, status}})), title), offered)
            << title << " " << label(status);

    std::vector<std::string> titles;
    MachineInfo odd = machine;
    odd.storageBytes = 300'000'000'000;
    for (const PickupStep& step : ReportAssembler::pickupSteps(odd, {}))
        titles.push_back(step.title);
    EXPECT_EQ(titles, (std::vector<std::string>{"Open Tessivo on this Mac and choose Check at Pickup",
                                                "Model and serial number", "Display colors", "Speakers",
                                                "Keyboard"}));

    const auto managed =
        ReportAssembler::pickupSteps(machine, results({{TestID::enrollment, Status::problem}}));
    EXPECT_EQ(managed[2].expect, "Enrolled (as this report says)");
    EXPECT_EQ(managed[3].expect, "512 GB drive");
}

TEST(ConditionReport, countsItsResults) {
    const std::pair<std::vector<Status>, const char*> rows[] = {
        {{}, ""},
        {{Status::works}, "1 work"},
        {{Status::problem, Status::works}, "1 work, 1 problem"},
        {{Status::problem, Status::problem}, "2 problems"},
        {{Status::notRun, Status::unfinished}, "2 not finished"},
        {{Status::notIncluded, Status::unfinished, Status::checkByHand, Status::problem, Status::works},
         "1 work, 1 problem, 1 to check by hand, 1 not finished, 1 not included"}};
    for (const auto& [statuses, expected] : rows) {
        ConditionReport report;
        for (const Status status : statuses)
            report.results.push_back({TestID::display, status, "", {}, {}});
        EXPECT_EQ(report.countsText(), expected);
    }
}

TEST(ConditionReport, reckonsWholeMinutes) {
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    constexpr auto least = std::numeric_limits<std::int64_t>::min();
    const auto minutes = [](std::vector<std::int64_t> seconds) {
        ConditionReport report;
        for (const std::int64_t each : seconds)
            report.pickup.push_back({"Title", "Expect", each});
        return report.pickupMinutes();
    };
    EXPECT_EQ(minutes({}), 1);
    EXPECT_EQ(minutes({60}), 1);
    EXPECT_EQ(minutes({60, 1}), 2);
    EXPECT_EQ(minutes({120}), 2);
    EXPECT_EQ(minutes({most, most}), most / 60 + 1) << "a hand-edited file may hold any number";
    EXPECT_EQ(minutes({least, least}), 1);
}

} // namespace
} // namespace tessivo

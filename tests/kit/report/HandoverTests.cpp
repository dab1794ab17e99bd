#include "kit/report/Handover.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

using Step = HandoverStep;
using enum EraseMethod;

const std::string support = TESSIVO_SUPPORT_HOST;

MachineInfo machine(std::string modelID, std::optional<std::string> chip = {}) {
    MachineInfo machine;
    machine.modelID = std::move(modelID);
    machine.chip = std::move(chip);
    return machine;
}

TEST(Handover, erasesEachMacItsOwnWay) {
    struct Row {
        MachineInfo machine;
        EraseMethod method;
        bool listsNVRAM, saysNVRAM;
    };
    const Row rows[] = {{machine("Mac14,2", "Intel Core i5"), eraseAssistant, false, false},
                        {machine("MacBookPro16,1", "Apple M2"), eraseAssistant, true, true},
                        {machine("iMac19,1"), recovery, true, true},
                        {machine("Mac99,1", "Apple M9"), eraseAssistant, false, false},
                        {machine("Mac99,1", "Intel Core i5"), either, true, true},
                        {machine("Mac99,1", "Fast"), either, true, false},
                        {machine("Mac99,1"), either, true, false}};
    const char* words[] = {"Erase All Content and Settings", "macOS Recovery and Disk Utility",
                           "Erase All Content and Settings, or macOS Recovery"};
    for (const Row& row : rows) {
        const std::string about = row.machine.modelID + " " + row.machine.chip.value_or("-");
        EXPECT_EQ(Handover::eraseMethod(row.machine), row.method) << about;
        const auto steps = Handover::steps(row.machine);
        EXPECT_EQ(steps.size(), row.listsNVRAM ? 7u : 6u) << about;
        EXPECT_EQ(steps.back(), row.listsNVRAM ? Step::nvram : Step::erase) << about;
        EXPECT_EQ(Handover::closingLine(row.machine),
                  std::string("Last, after this report: the seller erases the Mac (") +
                      words[int(row.method)] + (row.saysNVRAM ? ") and resets NVRAM." : ")."));
    }
}

TEST(Handover, tellsAndLinksTheWayToErase) {
    const auto paths = [](Step step, const MachineInfo& machine) {
        std::vector<std::string> paths;
        for (const HelpLink& link : Handover::links(step, machine)) {
            EXPECT_TRUE(link.url.starts_with(support + "/en-us/")) << link.url;
            paths.push_back(link.url.substr(support.size() + 7));
        }
        return paths;
    };
    using Paths = std::vector<std::string>;
    const MachineInfo air = machine("Mac14,2"), iMac = machine("iMac19,1"), unknown = machine("Mac99,1");
    EXPECT_EQ(paths(Step::erase, air), Paths{"102664"});
    EXPECT_EQ(paths(Step::erase, iMac), (Paths{"102518", "102639", "102655"}));
    EXPECT_EQ(paths(Step::erase, unknown), (Paths{"102664", "102518", "102639", "102655"}));
    EXPECT_TRUE(Handover::text(Step::erase, air).ends_with("hold the power button to turn it off."));
    EXPECT_TRUE(Handover::text(Step::erase, iMac).starts_with("This model doesn't have Erase All"));
    EXPECT_TRUE(Handover::text(Step::erase, unknown).starts_with("If System Settings › General"));

    EXPECT_EQ(paths(Step::findMy, air), paths(Step::appleAccount, air));
    EXPECT_EQ(Handover::links(Step::bluetooth, air), std::vector{Handover::guide()});
    for (const Step step : allCases<Step>()) {
        EXPECT_FALSE(Handover::text(step, unknown).empty()) << title(step);
        EXPECT_FALSE(Handover::links(step, unknown).empty()) << title(step);
    }
}

TEST(Handover, reportsTicksButNeverWhatComesAfter) {
    const MachineInfo intel = machine("iMac19,1");
    EXPECT_EQ(Handover::lines(std::nullopt, intel), std::nullopt);
    EXPECT_EQ(Handover::lines(HandoverChecklist{}, intel), std::nullopt);

    using Lines = std::vector<HandoverLine>;
    EXPECT_EQ(Handover::lines(HandoverChecklist{{Step::music, Step::nvram}}, intel),
              (Lines{{Step::backup, false},
                     {Step::music, true},
                     {Step::findMy, false},
                     {Step::appleAccount, false},
                     {Step::bluetooth, false}}));
    const auto untaken = Handover::lines(HandoverChecklist{{Step::erase}}, intel);
    ASSERT_TRUE(untaken);
    EXPECT_EQ(untaken->size(), 5u);
    for (const HandoverLine& line : *untaken)
        EXPECT_FALSE(line.ticked) << title(line.step);
}

} // namespace
} // namespace tessivo

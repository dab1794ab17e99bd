#include "kit/Samples.h"
#include "kit/report/ReportAssembler.h"
#include "kit/report/ReportText.h"
#include "tests/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tessivo {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

constexpr const char* zone = "America/Los_Angeles";
constexpr Date moment{794'448'429}; ///< March 6, 2026, 00:07:09 UTC

ConditionReport empty() {
    ConditionReport report;
    report.created = moment;
    report.machine.modelID = "Mac99,1";
    report.machine.osVersion = "macOS 15.0";
    report.appVersion = "1.0";
    return report;
}

TEST(ReportText, printsAWholeReport) {
    const auto report = ReportAssembler::make(Samples::session(), moment, "1.0", Samples::notes());
    // The file ends with a line feed, as files do; the text doesn't.
    EXPECT_EQ(ReportText::text(report, zone) + "\n", bytesOf(TESSIVO_TEST_DATA "/reports/sample-laptop.txt"));
}

TEST(ReportText, printsOnlyWhatThereIs) {
    EXPECT_THAT(
        ReportText::text(empty(), zone),
        EndsWith("macOS: macOS 15.0\n\nRESULTS ()\n\nCHECK IT YOURSELF AT PICKUP (under 1 minutes)\n\n" +
                 std::string(ReportText::disclaimer)));
}

TEST(ReportText, marksEveryStatusAndKeepsNotesAndAnEmptyHandoverApart) {
    ConditionReport report = empty();
    for (const TestStatus status : allCases<TestStatus>())
        report.results.push_back({TestID::speakers, status, "Said", {"Detail"}, {}});
    report.results[3].note = "";
    report.notes = "One\n\nTwo";
    report.handover.emplace();
    const std::string text = ReportText::text(report, zone);
    EXPECT_THAT(text,
                HasSubstr("RESULTS (1 work, 1 problem, 1 to check by hand, 2 not finished, 1 not included)\n"
                          "[  ] Speakers: Not run. Said\n"
                          "[  ] Speakers: Not finished. Said\n"
                          "[OK] Speakers: Works. Said\n"
                          "[!!] Speakers: Problem. Said\n"
                          "   Note: \n"
                          "[??] Speakers: Check by hand. Said\n"
                          "[--] Speakers: Not included. Said\n"
                          "\n"
                          "NOTES\n"
                          "One\n\nTwo\n"
                          "\n"
                          "BEFORE HANDOVER (TICKED BY THE SELLER)\n"
                          "Ticked by the seller on this Mac. Tessivo can't see iCloud, Find My, Music or "
                          "Bluetooth, so it doesn't check these.\n"
                          "Last, after this report: the seller erases the Mac (Erase All Content and "
                          "Settings, or macOS Recovery).\n"
                          "Buyer: before the erase, "));
    EXPECT_THAT(text, Not(HasSubstr("Detail")));
}

TEST(ReportText, writesTheDateInTheZonesOwnTime) {
    const std::tuple<double, const char*, const char*> rows[] = {
        {794'448'429, zone, "March 5, 2026 at 4:07 PM PST"},
        {794'448'429 + 10 * 86400, zone, "March 15, 2026 at 5:07 PM PDT"},
        {794'448'429, "UTC", "March 6, 2026 at 12:07 AM UTC"},
        {794'448'429 + 12 * 3600, "UTC", "March 6, 2026 at 12:07 PM UTC"}};
    for (const auto& [seconds, name, expected] : rows)
        EXPECT_EQ(ReportText::dateText({seconds}, name), expected);
}

} // namespace
} // namespace tessivo

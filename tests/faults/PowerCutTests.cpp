#include "tests/TemporaryFolder.h"
#include "tests/faults/RecordedDisk.h"
#include "tests/faults/Reports.h"

#include <functional>
#include <gtest/gtest.h>

namespace tessivo {
namespace {

using Unsynced = RecordedDisk::Unsynced;

/// Cuts the power after each step of `save`, with each number of names and each kind of bytes lost that the
/// syncs allow, and gives the folder that it leaves to `check`, with whether the save had returned by then.
/// Returns how many cuts there were.
int cutEverywhere(const std::function<void(const std::filesystem::path&)>& prepare,
                  const std::function<void(const std::filesystem::path&, RecordedDisk&)>& save,
                  const std::function<void(const std::filesystem::path&, bool)>& check) {
    const TemporaryFolder recorded;
    prepare(recorded.path());
    RecordedDisk disk;
    disk.longestWrite = 7'000;
    save(recorded.path(), disk);
    int cuts = 0;
    for (std::size_t count = 0; count <= disk.steps.size(); ++count)
        for (std::size_t lost = 0; lost <= disk.unsafeNames(count); ++lost)
            for (Unsynced unsynced : {Unsynced::lost, Unsynced::torn, Unsynced::zeros, Unsynced::kept}) {
                const TemporaryFolder folder;
                prepare(folder.path());
                disk.cut(folder.path(), count, lost, unsynced);
                SCOPED_TRACE("after step " + std::to_string(count) + ", " + std::to_string(lost) +
                             " names lost");
                check(folder.path(), count == disk.steps.size());
                ++cuts;
            }
    return cuts;
}

TEST(PowerCut, aReportIsTheOldOneOrTheNewAndOnceSavedTheNew) {
    const ConditionReport before = versionedReport(1, 20'000);
    const ConditionReport after = versionedReport(2, 30'000);
    const int cuts =
        cutEverywhere([&](const auto& folder) { HistoryStore{folder}.save(before); },
                      [&](const auto& folder, RecordedDisk& disk) { HistoryStore{folder}.save(after, disk); },
                      [&](const auto& folder, bool saved) {
                          const auto list = HistoryStore{folder}.list();
                          ASSERT_EQ(list.size(), 1u);
                          EXPECT_TRUE(list.front() == after || (!saved && list.front() == before));
                      });
    EXPECT_GT(cuts, 40);
}

TEST(PowerCut, aFirstReportIsThereOrNotAndOnceSavedThere) {
    const ConditionReport report = versionedReport(1, 20'000);
    cutEverywhere([](const auto&) {},
                  [&](const auto& folder, RecordedDisk& disk) { HistoryStore{folder}.save(report, disk); },
                  [&](const auto& folder, bool saved) {
                      const auto list = HistoryStore{folder}.list();
                      EXPECT_TRUE(list == std::vector{report} || (!saved && list.empty()));
                  });
}

} // namespace
} // namespace tessivo

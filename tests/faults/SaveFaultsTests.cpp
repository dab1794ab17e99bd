#include "tests/TemporaryFolder.h"
#include "tests/faults/FaultyCalls.h"
#include "tests/faults/Reports.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <system_error>

namespace tessivo {
namespace {

using testing::ElementsAre;

const ConditionReport before = versionedReport(1, 20'000);
const ConditionReport after = versionedReport(2, 30'000);

/// What a save of `after` into a folder that exists calls when nothing fails.
std::vector<std::string> callsOfASave(std::size_t longestWrite) {
    const TemporaryFolder folder;
    FaultyCalls calls;
    calls.longestWrite = longestWrite;
    HistoryStore{folder.path()}.save(after, calls);
    return calls.made;
}

TEST(SaveFaults, everyCallThatFailsOnceIsToldAndDamagesNothing) {
    const TemporaryFolder folder;
    const HistoryStore store{folder / "History"};
    store.save(before);
    const auto calls = callsOfASave(7'000);
    const std::set<std::string> kinds(calls.begin(), calls.end());
    ASSERT_THAT(kinds, ElementsAre("close", "open", "rename", "sync", "write"));
    for (int error : {EIO, ENOSPC, EDQUOT, EROFS, EPERM}) {
        for (std::size_t at = 0; at + 1 < calls.size();
             ++at) { // the last one closes the folder after all is done
            FaultyCalls faulty;
            faulty.longestWrite = 7'000;
            faulty.failing = at;
            faulty.error = error;
            try {
                store.save(after, faulty);
                ADD_FAILURE() << calls[at] << " " << at << " failed and nobody said so";
            } catch (const std::system_error& fault) {
                EXPECT_EQ(fault.code().value(), error);
            }
            // Only the sync of the folder comes after the new file is in place.
            const bool replaced = at + 2 == calls.size();
            EXPECT_TRUE(store.list() == std::vector{replaced ? after : before}) << calls[at] << " " << at;
            EXPECT_EQ(namesIn(store.folder).size(), 1u) << "a stray after " << calls[at] << " " << at;
            store.save(before);
        }
    }
}

TEST(SaveFaults, theFirstSaveOfAllFailsAsCleanly) {
    const TemporaryFolder folder;
    FaultyCalls counting;
    HistoryStore{folder / "count/deep/History"}.save(before, counting);
    for (std::size_t at = 0; at + 1 < counting.made.size(); ++at) {
        const std::string& call = counting.made[at];
        const HistoryStore store{folder / (std::to_string(at) + "/deep/History")};
        FaultyCalls faulty;
        faulty.failing = at;
        if (call == "close" && counting.made[at + 1] != "rename") continue; // of a folder that was only read
        EXPECT_THROW(store.save(before, faulty), std::system_error) << call << " " << at;
        const bool isInPlace = at + 2 == counting.made.size();
        EXPECT_EQ(store.list().size(), isInPlace ? 1u : 0u) << call << " " << at;
        store.save(after);
        EXPECT_TRUE(store.list() == std::vector{after});
        EXPECT_EQ(namesIn(store.folder).size(), 1u);
    }
}

TEST(SaveFaults, interruptedAndShortWritesAreNoFault) {
    const TemporaryFolder folder;
    const HistoryStore store{folder.path()};
    const auto calls = callsOfASave(7'000);
    for (std::size_t at = 0; at < calls.size(); ++at) {
        if (calls[at] == "rename") continue;
        FaultyCalls faulty;
        faulty.longestWrite = 7'000;
        faulty.failing = at;
        faulty.error = EINTR;
        EXPECT_NO_THROW(store.save(after, faulty)) << calls[at] << " " << at;
        EXPECT_TRUE(store.list() == std::vector{after});
    }
    FaultyCalls slow;
    slow.longestWrite = 1;
    store.save(before, slow);
    EXPECT_TRUE(store.list() == std::vector{before});
}

TEST(SaveFaults, aFolderThatCanNotBeSyncedIsNoReasonToRefuse) {
    const TemporaryFolder folder;
    const HistoryStore store{folder.path()};
    const auto calls = callsOfASave(SIZE_MAX);
    for (int error : {EINVAL, ENOTSUP}) {
        FaultyCalls faulty;
        faulty.failing = calls.size() - 2;
        faulty.error = error;
        EXPECT_NO_THROW(store.save(after, faulty));
    }
    FaultyCalls unreadable;
    unreadable.failing = 0;
    unreadable.error = EACCES;
    EXPECT_NO_THROW(store.save(after, unreadable));
}

} // namespace
} // namespace tessivo

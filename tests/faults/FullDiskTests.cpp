#include "tests/SmallDisk.h"
#include "tests/faults/Reports.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace tessivo {
namespace {

TEST(FullDisk, atEveryStepTheOldReportStandsAndTheFaultIsTold) {
    constexpr std::size_t step = 4096, size = 64 * step;
    const ConditionReport before = versionedReport(1, 9'000), after = versionedReport(2, 40'000);
    int refused = 0, saved = 0;
    for (std::size_t fill = 0; fill <= size; fill += step) {
        const SmallDisk disk(size);
        if (!disk.isMounted()) GTEST_SKIP() << "no small disk can be mounted here: " << std::strerror(errno);
        const HistoryStore store{disk.folder() / "History"};
        store.save(before);
        disk.folder().write("filler", std::string(fill, 'x')); // as much of it as there is room for
        try {
            store.save(after);
            ++saved;
            EXPECT_TRUE(store.list() == std::vector{after}) << fill;
        } catch (const std::system_error& fault) {
            ++refused;
            EXPECT_EQ(fault.code(), std::errc::no_space_on_device);
            EXPECT_TRUE(store.list() == std::vector{before}) << fill;
        }
        EXPECT_EQ(namesIn(store.folder).size(), 1u) << "a stray at " << fill;
    }
    EXPECT_GT(refused, 8);
    EXPECT_GT(saved, 8);
}

/// Needs no rights: the system refuses to let a file grow beyond a limit, at every byte near the borders.
TEST(FullDisk, aFileThatMayNotGrowLeavesTheOldOne) {
    const TemporaryFolder folder;
    const HistoryStore store{folder / "History"};
    const ConditionReport before = versionedReport(1, 500), after = versionedReport(2, 9'000);
    store.save(before);
    const std::size_t needed = HistoryStore::encode(after).size();
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) { // the limit can't be taken back by whoever lowered it
        ::signal(SIGXFSZ, SIG_IGN);
        int wrong = 0;
        for (std::size_t limit = 0; limit < needed; limit += limit + 64 < needed && limit > 64 ? 61 : 1) {
            const rlimit bound{limit, RLIM_INFINITY};
            ::setrlimit(RLIMIT_FSIZE, &bound);
            try {
                store.save(after);
                ++wrong;
            } catch (const std::system_error& fault) {
                wrong += fault.code() != std::errc::file_too_large;
            }
            const auto reports = store.list();
            wrong += reports.size() != 1 || reports[0] != before || namesIn(store.folder).size() != 1;
        }
        const rlimit enough{needed, RLIM_INFINITY};
        ::setrlimit(RLIMIT_FSIZE, &enough);
        store.save(after);
        ::_exit(wrong == 0 ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    EXPECT_TRUE(store.list() == std::vector{after});
}

} // namespace
} // namespace tessivo

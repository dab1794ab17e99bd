#include "tests/TemporaryFolder.h"
#include "tests/faults/Reports.h"

#include <chrono>
#include <gtest/gtest.h>
#include <random>
#include <signal.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace tessivo {
namespace {

constexpr int kills = 500;

ConditionReport numbered(int version) {
    return versionedReport(version, std::size_t(version % 7) * 3'000);
}

/// Saves version after version under one id and tells each one that is done.
[[noreturn]] void saveForever(const HistoryStore& store, int version, int done) try {
    while (true) {
        store.save(numbered(version));
        if (::write(done, &version, sizeof version) != sizeof version) ::_exit(4);
        ++version;
    }
} catch (...) {
    ::_exit(3);
}

/// The last number that was written whole into the pipe, or `otherwise`.
int lastFrom(int pipe, int otherwise) {
    for (int number; ::read(pipe, &number, sizeof number) == sizeof number;)
        otherwise = number;
    return otherwise;
}

/// A child that saves without end is killed at random moments. Whatever the moment, the report is there,
/// whole, and never older than the last save that was done.
TEST(Kill, neverLosesNorHalvesAReport) {
    const TemporaryFolder folder;
    const HistoryStore store{folder / "History"};
    int version = 7;
    const auto begun = std::chrono::steady_clock::now();
    for (int each = 1; each <= version; ++each)
        store.save(numbered(each));
    // A child gets through none, some or several saves, however fast this build is.
    const auto several =
        std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - begun);
    int advanced = 0;
    std::mt19937 random(4);
    std::uniform_int_distribution<std::int64_t> moment(0, several.count());
    for (int i = 0; i < kills; ++i) {
        int ends[2];
        ASSERT_EQ(::pipe(ends), 0);
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) saveForever(store, version + 1, ends[1]);
        ::close(ends[1]);
        std::this_thread::sleep_for(std::chrono::microseconds(moment(random)));
        ASSERT_EQ(::kill(child, SIGKILL), 0);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status)) << "the child could not save";
        const int done = lastFrom(ends[0], version);
        ::close(ends[0]);

        const auto reports = store.list();
        ASSERT_EQ(reports.size(), 1u) << "after kill " << i;
        const int now = std::stoi(reports[0].appVersion);
        ASSERT_TRUE(now == done || now == done + 1) << now << " after " << done << " in kill " << i;
        ASSERT_TRUE(reports[0] == numbered(now)) << "after kill " << i;
        advanced += now > version;
        version = now;
    }
    EXPECT_GT(advanced, kills / 10) << "the children were killed before they did anything";

    // Strays that the kills left are hidden from the listing, and go with a save once they are old.
    for (const std::string& name : namesIn(store.folder)) {
        if (name.ends_with(".saving"))
            std::filesystem::last_write_time(
                store.folder / name, std::filesystem::file_time_type::clock::now() - std::chrono::hours(2));
    }
    store.save(versionedReport(version + 1, 0));
    EXPECT_EQ(namesIn(store.folder).size(), 1u);
}

} // namespace
} // namespace tessivo

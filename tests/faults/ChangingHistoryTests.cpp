#include "tests/TemporaryFolder.h"
#include "tests/faults/Reports.h"

#include <csignal>
#include <gtest/gtest.h>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

namespace tessivo {
namespace {

namespace fs = std::filesystem;

constexpr int reportCount = 40;

ConditionReport report(int number) {
    ConditionReport report = versionedReport(1, 2'000);
    report.id = *Uuid::parse("6F9619FF-8B86-D011-B42D-0000000000" + std::string(number < 10 ? "0" : "") +
                             std::to_string(number));
    return report;
}

/// Another program at work in the folder, until it is ended: reports come, go, shrink and change their names.
[[noreturn]] void disturb(const HistoryStore& store) {
    std::mt19937 random(1);
    std::error_code ignored;
    for (;;) {
        const ConditionReport one = report(int(random() % reportCount));
        const fs::path file = store.folder / (one.id.text() + ".json");
        switch (random() % 5) {
        case 0:
            fs::remove(file, ignored);
            break;
        case 1:
            fs::resize_file(file, random() % 2'000, ignored);
            break;
        case 2:
            fs::rename(file, store.folder / ("copy of " + one.id.text()), ignored);
            break;
        default:
            try {
                store.save(one);
            } catch (const std::system_error&) {
            }
        }
    }
}

TEST(ChangingHistory, isListedAThousandTimesAndExactlyAtTheEnd) {
    const TemporaryFolder folder;
    const HistoryStore store{folder.path()};
    for (int i = 0; i < reportCount; ++i)
        store.save(report(i));
    const pid_t other = ::fork();
    ASSERT_GE(other, 0);
    if (other == 0) disturb(store);

    std::size_t fewest = reportCount;
    for (int i = 0; i < 1'000; ++i) {
        const auto list = store.list();
        fewest = std::min(fewest, list.size());
        // Whatever is shown is a whole report, and none twice.
        for (const ConditionReport& listed : list) {
            EXPECT_EQ(listed.notes, report(0).notes);
            EXPECT_EQ(std::ranges::count(list, listed.id, &ConditionReport::id), 1);
        }
    }
    ::kill(other, SIGKILL);
    ASSERT_EQ(::waitpid(other, nullptr, 0), other);
    EXPECT_LT(fewest, std::size_t(reportCount)) << "nothing changed in the meantime";

    for (int i = 0; i < reportCount; ++i)
        i % 2 ? store.save(report(i)) : void(fs::remove(store.folder / (report(i).id.text() + ".json")));
    const auto list = store.list();
    EXPECT_EQ(list.size(), std::size_t(reportCount / 2));
    for (const ConditionReport& listed : list)
        EXPECT_TRUE(listed == report(std::stoi(listed.id.text().substr(34)))) << listed.id.text();
}

} // namespace
} // namespace tessivo

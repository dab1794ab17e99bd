#include "platform/QtScheduler.h"
#include "platform/linux/LinuxDefaults.h"
#include "tests/SmallDisk.h"

#include <QTest>
#include <cstring>
#include <gtest/gtest.h>

namespace tessivo {
namespace {

using namespace std::chrono_literals;

std::string everyByte() {
    std::string bytes;
    for (int i = 0; i < 256; ++i)
        bytes += char(i);
    return bytes;
}

TEST(LinuxDefaults, valuesSurviveToTheByte) {
    const TemporaryFolder folder;
    const auto file = folder / "new/folder/Tessivo.ini";
    EXPECT_EQ(LinuxDefaults(file).data("session"), std::nullopt);
    EXPECT_EQ(LinuxDefaults(file).text("notes"), std::nullopt);
    for (const std::string& bytes :
         {everyByte(), std::string("{\"started\":1.5,\"overrides\":[]}"), std::string("@ByteArray("),
          std::string("Ein \"Kratzer\";\n% @Größe, \\x41 [x]=y 🎹\r\n\t "), std::string()}) {
        LinuxDefaults(file).setData("session", bytes);
        EXPECT_EQ(LinuxDefaults(file).data("session"), bytes);
        const std::string notes = bytes == everyByte() ? "other" : bytes; // a text is UTF-8
        LinuxDefaults(file).setText("notes", notes);
        EXPECT_EQ(LinuxDefaults(file).text("notes"), notes);
        EXPECT_EQ(LinuxDefaults(file).data("session"), bytes);
    }
}

TEST(LinuxDefaults, aFailedWriteLeavesTheValueBefore) {
    const TemporaryFolder folder;
    folder.write("file", "");
    LinuxDefaults nowhere(folder / "file/Tessivo.ini");
    nowhere.setText("notes", "lost");
    EXPECT_EQ(nowhere.text("notes"), std::nullopt);

    const auto path = folder / "Tessivo.ini";
    LinuxDefaults defaults(path);
    defaults.setText("notes", "kept");
    const std::string before = bytesOf(path);
    // Not to be written in place of a folder.
    std::filesystem::rename(path, folder / "aside");
    std::filesystem::create_directories(path / "in the way");
    defaults.setText("notes", "lost");
    std::filesystem::remove_all(path);
    std::filesystem::rename(folder / "aside", path);
    EXPECT_EQ(bytesOf(path), before);
    EXPECT_EQ(LinuxDefaults(path).text("notes"), "kept");
}

TEST(LinuxDefaults, anyFileOpens) {
    const TemporaryFolder folder;
    for (const std::string& bytes :
         {std::string("[General\nsession=@ByteArray("), everyByte(), std::string(1 << 20, '['),
          std::string("session=a, b\nnotes=@Variant(\\0\\0)")}) {
        LinuxDefaults defaults(folder.write("Tessivo.ini", bytes));
        defaults.data("session");
        defaults.setData("session", "new");
        EXPECT_EQ(LinuxDefaults(folder / "Tessivo.ini").data("session"), "new");
        EXPECT_EQ(namesIn(folder.path()), std::vector<std::string>{"Tessivo.ini"});
    }
}

TEST(LinuxDefaults, aSessionIsTheOldOneOrTheNewOneWhateverRoomIsLeftOnTheDisk) {
    constexpr std::size_t diskSize = 256 * 1024, step = 4096;
    using Kind = DefaultsEntry::Kind;
    const std::string before(9'000, 'a'), after(40'000, 'b'), notes = "Scuff on the lid";
    int kept = 0, replaced = 0;
    for (std::size_t fill = 0; fill <= diskSize; fill += step) {
        const SmallDisk disk(diskSize);
        if (!disk.isMounted()) GTEST_SKIP() << "a small disk takes root: " << std::strerror(errno);
        LinuxDefaults defaults(disk.folder() / "Tessivo.ini");
        defaults.set({{"session", Kind::data, before}, {"notes", Kind::text, notes}});
        disk.folder().write("filler", std::string(fill, 'x'));
        defaults.set({{"session", Kind::data, after}, {"notes", Kind::text, "new"}});

        const LinuxDefaults nextLaunch(disk.folder() / "Tessivo.ini");
        const auto session = nextLaunch.data("session");
        ASSERT_TRUE(session == before || session == after) << "with " << fill << " bytes in the way";
        EXPECT_EQ(nextLaunch.text("notes"), session == before ? notes : "new") << "both or none";
        ++(session == before ? kept : replaced);
        EXPECT_EQ(namesIn(disk.folder().path()), (std::vector<std::string>{"Tessivo.ini", "filler"}));
    }
    EXPECT_GT(kept, 0);
    EXPECT_GT(replaced, 0);
}

TEST(QtScheduler, eachActionRunsOnceNeverEarlyAndDiesWithItsHandle) {
    QtScheduler scheduler;
    std::vector<std::unique_ptr<Scheduled>> kept;
    std::size_t runs = 0, early = 0;
    scheduler.after(1ms, [&] { runs += 100; }).reset();
    const auto begin = std::chrono::steady_clock::now();
    for (auto delay = 60ms; delay < 260ms; delay += 7ms)
        kept.push_back(scheduler.after(delay, [&, delay] {
            early += std::chrono::steady_clock::now() - begin < delay;
            ++runs;
        }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return runs >= kept.size(); }));
    QTest::qWait(60);
    EXPECT_EQ(runs, kept.size());
    EXPECT_EQ(early, 0u);
}

TEST(QtScheduler, anActionMayReplaceItsOwnHandle) {
    QtScheduler scheduler;
    int runs = 0;
    const auto captured = std::make_shared<int>(0);
    std::unique_ptr<Scheduled> poll;
    std::function<void()> action = [&, captured] {
        if (++runs < 3)
            poll = scheduler.after(1ms, action);
        else
            poll.reset();
        ++*captured;
    };
    poll = scheduler.after(0ms, action);
    QTest::qWait(60);
    EXPECT_EQ(runs, 3);
    EXPECT_EQ(*captured, 3);
    action = nullptr;
    // Letting go of a handle lets go of what its action holds.
    EXPECT_EQ(captured.use_count(), 1);
}

} // namespace
} // namespace tessivo

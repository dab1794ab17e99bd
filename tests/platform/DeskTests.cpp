#include "platform/QtScheduler.h"
#include "platform/linux/LinuxDefaults.h"
#include "tests/TemporaryFolder.h"

#include <QCoreApplication>
#include <QElapsedTimer>
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
    const std::string notes = "Ein \"Kratzer\";\n% @Größe, \\x41 [x]=y 🎹\r\n\t ";
    for (const std::string& bytes :
         {everyByte(), std::string(), std::string("{\"started\":1.5,\"overrides\":[]}"),
          std::string("@ByteArray(")}) {
        LinuxDefaults(file).setData("session", bytes);
        LinuxDefaults(file).setText("notes", notes);
        EXPECT_EQ(LinuxDefaults(file).data("session"), bytes);
        EXPECT_EQ(LinuxDefaults(file).text("notes"), notes);
    }
    LinuxDefaults(file).setText("notes", "");
    EXPECT_EQ(LinuxDefaults(file).text("notes"), "");
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

void runEvents(std::chrono::milliseconds time) {
    for (QElapsedTimer timer =
             [] {
                 QElapsedTimer t;
                 t.start();
                 return t;
             }();
         timer.elapsed() < time.count();)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
}

TEST(QtScheduler, runsOnceAndDiesWithItsHandle) {
    QtScheduler scheduler;
    int runs = 0;
    const auto kept = scheduler.after(10ms, [&] { ++runs; });
    scheduler.after(1ms, [&] { runs += 100; }).reset();
    runEvents(60ms);
    EXPECT_EQ(runs, 1);
}

TEST(QtScheduler, noActionRunsEarly) {
    QtScheduler scheduler;
    std::vector<std::unique_ptr<Scheduled>> kept;
    std::size_t runs = 0, early = 0;
    const auto begin = std::chrono::steady_clock::now();
    for (auto delay = 60ms; delay < 260ms; delay += 7ms)
        kept.push_back(scheduler.after(delay, [&, delay] {
            early += std::chrono::steady_clock::now() - begin < delay;
            ++runs;
        }));
    for (int turn = 0; turn < 100 && runs < kept.size(); ++turn)
        runEvents(20ms);
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
    runEvents(60ms);
    EXPECT_EQ(runs, 3);
    EXPECT_EQ(*captured, 3);
    action = nullptr;
    // Letting go of a handle lets go of what its action holds.
    EXPECT_EQ(captured.use_count(), 1);
}

} // namespace
} // namespace tessivo

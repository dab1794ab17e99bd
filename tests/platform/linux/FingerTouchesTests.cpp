#include "platform/linux/LinuxFingerTouches.h"
#include "tests/TemporaryFolder.h"

#include <QCoreApplication>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTest>
#include <gmock/gmock.h>

namespace tessivo {
namespace {

using Fingers = std::vector<FingerPosition>;

TEST(LinuxFingerTouches, nothingToReadCallsNothing) {
    TemporaryFolder folder;
    std::ofstream(folder.path() / "event0") << "no device";
    std::ofstream(folder.path() / "mouse0") << "";
    std::filesystem::create_directory(folder.path() / "event1");
    for (const auto& devices : {folder.path(), folder.path() / "none"}) {
        LinuxFingerTouches touches(devices);
        int calls = 0;
        touches.start({[&](const Fingers&) { ++calls; }, [&](const std::string&) { ++calls; }});
        std::ofstream(folder.path() / "event2") << "plugged in";
        QTest::qWait(100);
        EXPECT_EQ(calls, 0);
        touches.stop();
        touches.stop();
    }
}

/// The part that runs where umockdev has put a touchpad in place.
TEST(LinuxFingerTouches, DISABLED_readsTheTouchpadInPlace) {
    LinuxFingerTouches touches;
    std::vector<Fingers> reports;
    touches.start({[&](const Fingers& fingers) {
                       reports.push_back(fingers);
                       // Whoever is told may stop listening.
                       if (reports.size() == 6) touches.stop();
                   },
                   nullptr});
    ASSERT_TRUE(QTest::qWaitFor([&] { return reports.size() == 6; }, 10'000));
    std::vector<std::int64_t> touched;
    for (const Fingers& fingers : reports)
        for (const FingerPosition& finger : fingers)
            touched.push_back(finger.touch - reports[0][0].touch);
    EXPECT_EQ(touched, (std::vector<std::int64_t>{0, 0, 0, 1, 1, 2, 1})) << "each finger keeps its number";
    EXPECT_EQ(reports,
              (std::vector<Fingers>{
                  {{0, 0.5}}, {{0.25, 0.5}}, {{0.25, 0.5}, {1, 1}}, {{1, 0}}, {{0.5, 0.5}, {1, 0}}, {}}));
}

TEST(LinuxFingerTouches, readsATouchpadsEventFile) {
    const QString data = TESSIVO_TEST_DATA "/touchpads/two-slots", device = "/dev/input/event5=";
    QProcess child;
    child.setProcessChannelMode(QProcess::MergedChannels);
    // umockdev comes in by preloading, before a sanitizer's own library.
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("ASAN_OPTIONS", environment.value("ASAN_OPTIONS") + ":verify_asan_link_order=0");
    child.setProcessEnvironment(environment);
    child.start("umockdev-run",
                {"--device", data + ".umockdev", "--ioctl", device + data + ".ioctl", "--evemu-events",
                 device + data + ".evemu", "--", QCoreApplication::applicationFilePath(),
                 "--gtest_filter=LinuxFingerTouches.DISABLED_*", "--gtest_also_run_disabled_tests"});
    ASSERT_TRUE(child.waitForFinished(60'000)) << child.errorString().toStdString();
    const std::string output = child.readAll().toStdString();
    EXPECT_EQ(child.exitCode(), 0) << output;
    EXPECT_THAT(output, ::testing::HasSubstr("[  PASSED  ] 1 test.")) << output;
}

} // namespace
} // namespace tessivo

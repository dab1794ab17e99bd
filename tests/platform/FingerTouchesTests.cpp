#include "platform/linux/LinuxFingerTouches.h"
#include "tests/TemporaryFolder.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QProcessEnvironment>
#include <gmock/gmock.h>

namespace tessivo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Fingers = std::vector<FingerPosition>;

void handleEventsFor(int milliseconds, const std::function<bool()>& enough) {
    QElapsedTimer timer;
    timer.start();
    while (!enough() && timer.elapsed() < milliseconds)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 50);
}

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
        handleEventsFor(100, [&] { return calls > 0; });
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
    handleEventsFor(10'000, [&] { return reports.size() == 6; });
    EXPECT_EQ(reports,
              (std::vector<Fingers>{
                  {{0, 0.5}}, {{0.25, 0.5}}, {{0.25, 0.5}, {1, 1}}, {{1, 0}}, {{0.5, 0.5}, {1, 0}}, {}}));
}

TEST(LinuxFingerTouches, readsATouchpadsEventFile) {
    const QString data = QStringLiteral(TESSIVO_TEST_DATA "/touchpads/two-slots");
    const QString device = QStringLiteral("/dev/input/event5=");
    QProcess child;
    child.setProcessChannelMode(QProcess::MergedChannels);
    // umockdev comes in by preloading, before a sanitizer's own library.
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("ASAN_OPTIONS"), environment.value(QStringLiteral("ASAN_OPTIONS")) +
                                                           QStringLiteral(":verify_asan_link_order=0"));
    child.setProcessEnvironment(environment);
    child.start(QStringLiteral("umockdev-run"),
                {QStringLiteral("--device"), data + QStringLiteral(".umockdev"), QStringLiteral("--ioctl"),
                 device + data + QStringLiteral(".ioctl"), QStringLiteral("--evemu-events"),
                 device + data + QStringLiteral(".evemu"), QStringLiteral("--"),
                 QCoreApplication::applicationFilePath(),
                 QStringLiteral("--gtest_filter=LinuxFingerTouches.DISABLED_*"),
                 QStringLiteral("--gtest_also_run_disabled_tests")});
    ASSERT_TRUE(child.waitForFinished(60'000)) << child.errorString().toStdString();
    const std::string output = child.readAll().toStdString();
    EXPECT_EQ(child.exitCode(), 0) << output;
    EXPECT_THAT(output, ::testing::HasSubstr("[  PASSED  ] 1 test.")) << output;
}

} // namespace
} // namespace tessivo

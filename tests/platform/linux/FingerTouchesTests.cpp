#include "platform/linux/LinuxFingerTouches.h"
#include "tests/TemporaryFolder.h"

#include <QCoreApplication>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTest>
#include <cstdio>
#include <gmock/gmock.h>
#include <iostream>
#include <linux/input.h>
#include <sstream>

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
        touches.start(nullptr, {[&](const Fingers&) { ++calls; }, [&](Gesture) { ++calls; }});
        std::ofstream(folder.path() / "event2") << "plugged in";
        QTest::qWait(100);
        EXPECT_EQ(calls, 0);
        touches.stop();
        touches.stop();
    }
}

/// The part that runs where umockdev has put a touchpad in place: prints what is told until it is quiet.
TEST(LinuxFingerTouches, DISABLED_printsWhatTheTouchpadInPlaceTells) {
    LinuxFingerTouches touches;
    int reports = 0;
    const auto print = [&](const Fingers& fingers) {
        std::cout << "told";
        for (const auto& [x, y, touch] : fingers)
            std::cout << ' ' << x << '/' << y << '#' << touch;
        std::cout << std::endl;
        // Whoever is told may stop listening.
        if (++reports == 6) touches.stop();
    };
    touches.start(nullptr, {print, nullptr});
    EXPECT_TRUE(QTest::qWaitFor([&] { return reports > 0; }, 10'000));
    for (int before = 0; before != reports; QTest::qWait(300))
        before = reports;
}

/// What is told of one of the streams of tests/data/touchpads, by the whole road from its event file.
std::string toldOf(const std::string& name) {
    // The device answers as the one of "two-slots" does, but for the axes.
    const std::string data = TESSIVO_TEST_DATA "/touchpads/", stream = data + name + ".evemu";
    std::string answers = bytesOf(data + "two-slots.ioctl");
    std::istringstream lines(bytesOf(stream));
    for (std::string line; std::getline(lines, line);) {
        unsigned axis = 0;
        int minimum = 0, maximum = 0;
        if (std::sscanf(line.c_str(), "A: %x %d %d", &axis, &minimum, &maximum) != 3) continue;
        const auto little = [](int value) {
            return QByteArray(reinterpret_cast<const char*>(&value), sizeof value)
                .toHex()
                .toUpper()
                .toStdString();
        };
        const std::string key = "EVIOCGABS(" + std::to_string(axis) + ") 0 ";
        answers.replace(answers.find(key) + key.size() + 8, 16, little(minimum) + little(maximum));
        if (axis != ABS_MT_SLOT) continue;
        std::string slots = little(ABS_MT_TRACKING_ID);
        for (int slot = 0; slot <= maximum; ++slot)
            slots += little(-1);
        const std::size_t start = answers.find("EVIOCGMTSLOTS"), end = answers.find('\n', start);
        answers.replace(start, end - start, "EVIOCGMTSLOTS(0) 0 " + slots);
    }
    const TemporaryFolder folder;
    const auto text = [](const std::string& each) { return QString::fromStdString(each); };
    const std::string device = "/dev/input/event5=";
    QProcess child;
    child.setProcessChannelMode(QProcess::MergedChannels);
    // umockdev comes in by preloading, before a sanitizer's own library.
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("ASAN_OPTIONS", environment.value("ASAN_OPTIONS") + ":verify_asan_link_order=0");
    child.setProcessEnvironment(environment);
    child.start("umockdev-run",
                {"--device", text(data + "two-slots.umockdev"), "--ioctl",
                 text(device + folder.write("answers.ioctl", answers).string()), "--evemu-events",
                 text(device + stream), "--", QCoreApplication::applicationFilePath(),
                 "--gtest_filter=LinuxFingerTouches.DISABLED_*", "--gtest_also_run_disabled_tests"});
    EXPECT_TRUE(child.waitForFinished(60'000)) << child.errorString().toStdString();
    std::string told, output = child.readAll().toStdString();
    EXPECT_THAT(output, ::testing::HasSubstr("[  PASSED  ] 1 test.")) << output;
    std::istringstream printed(output);
    for (std::string line; std::getline(printed, line);)
        if (line.starts_with("told")) told += line + '\n';
    return told;
}

TEST(LinuxFingerTouches, tellsEachFingerOfEachReport) {
    const std::pair<const char*, std::string> rows[] = {
        {"two-slots", "told 0/0.5#7\ntold 0.25/0.5#7\ntold 0.25/0.5#7 1/1#8\ntold 1/0#8\n"
                      "told 0.5/0.5#9 1/0#8\ntold\n"},
        {"another-range", "told 0/0#0 1/1#1 0.5/0.499901#2 1/0#3\n"},
        // Those that the device can't place stand at the last. A slot that it never stated, which no kernel
        // lets through, counts as its last one.
        {"more-fingers-than-slots", "told 0.1/0.1#1 0.9/0.9#2\n"
                                    "told 0.1/0.1#1 0.9/0.9#2 0.9/0.9#2 0.9/0.9#2 0.9/0.9#2\n"
                                    "told 0.1/0.1#1 0.5/0.5#2 0.5/0.5#2 0.5/0.5#2 0.5/0.5#2\n"
                                    "told 0.1/0.1#1 0.5/0.5#2 0.5/0.5#2 0.5/0.5#2 0.5/0.5#2\n"
                                    "told\ntold\n"},
        {"hovering-finger", "told\ntold 0.5/0.5#1\ntold\n"}};
    for (const auto& [stream, told] : rows)
        EXPECT_EQ(toldOf(stream), told) << stream;
    // What follows a loss is the kernel's to say; there is none here to be asked for its slots.
    EXPECT_THAT(toldOf("lost-events"), ::testing::StartsWith("told 0.1/0.2#1\ntold"));
}

} // namespace
} // namespace tessivo

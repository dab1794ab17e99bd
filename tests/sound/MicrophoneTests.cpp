#include "app/readers/CaptureAccess.h"
#include "app/readers/MicMonitor.h"
#include "app/readers/Readers.h"
#include "app/readers/TonePlayer.h"
#include "platform/QtScheduler.h"
#include "platform/linux/LinuxAudioObjects.h"
#include "platform/linux/LinuxCaptureDevices.h"
#include "platform/linux/LinuxToneOutput.h"
#include "tests/sound/SoundTest.h"

#include <cmath>
#include <numbers>
#include <signal.h>

namespace tessivo {
namespace {

const QString microphone = "module-remap-source master=one.monitor source_name=mic "
                           "source_properties=device.description='Inner\\ Microphone'";

/// Plays a sine into a sink until it goes.
class Sine final {
public:
    Sine(const SoundDaemon& daemon, const QString& sink, double frequency, double amplitude) {
        QByteArray bytes(48'000 * 10 * int(sizeof(float)), 0);
        auto* samples = reinterpret_cast<float*>(bytes.data());
        for (int i = 0; i < 48'000 * 10; ++i)
            samples[i] = float(amplitude * std::sin(2 * std::numbers::pi * frequency * i / 48'000));
        m_process.setProcessEnvironment(daemon.environment());
        m_process.start("pacat", {"-d", sink, "--raw", "--format=float32le", "--rate=48000", "--channels=1"});
        m_process.write(bytes);
    }
    ~Sine() {
        m_process.kill();
        m_process.waitForFinished(SoundDaemon::patience);
    }

private:
    QProcess m_process;
};

class MicrophoneTest : public SoundTest {
protected:
    LinuxCaptureDevices m_devices{m_server};
    QtScheduler m_scheduler;
};

TEST_F(MicrophoneTest, monitorsOfSinksAreNoMicrophones) {
    start({nullSink("one"), microphone}, 1, 2);
    EXPECT_EQ(listMicrophones(m_devices), (std::vector<CaptureDevice>{{"mic", "Inner Microphone"}}));
    EXPECT_EQ(m_devices.makeSession(MediaType::audio, "one.monitor", nullptr), nullptr);
}

TEST_F(MicrophoneTest, aToneAtHalfScalePassesAndAFaintOneDoesNot) {
    start({nullSink("one"), microphone}, 1, 2);
    struct {
        double amplitude, decibels;
        bool passes;
    } const cases[] = {{0.01 * std::numbers::sqrt2, -40, false}, {0.5, -9.03, true}};
    MicReading reading{.id = "mic", .name = "Inner Microphone"};
    for (const auto& [amplitude, decibels, passes] : cases) {
        SCOPED_TRACE(amplitude);
        MicMonitor monitor(m_devices, m_scheduler);
        const Sine sine(m_daemon, "one", 440, amplitude);
        ASSERT_TRUE(monitor.listen({"mic", ""}, [&](double level) { reading.hear(level); }));
        EXPECT_TRUE(
            QTest::qWaitFor([&, decibels = decibels] { return std::abs(monitor.level() - decibels) < 0.5; },
                            SoundDaemon::patience))
            << monitor.level();
        EXPECT_NEAR(*reading.peak, decibels, 0.5);
        EXPECT_EQ(reading.heardSound(), passes);
        monitor.stop();
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return !m_daemon.run("pactl", {"list", "source-outputs"}).contains("\"Tessivo\"");
        })) << "the microphone is released";
    }
}

TEST_F(MicrophoneTest, oneLoudChannelOfEightCounts) {
    start({nullSink("one", 8), "module-remap-source master=one.monitor source_name=mic channels=8"}, 1, 2);
    MicMonitor monitor(m_devices, m_scheduler);
    LinuxToneOutput output(m_server);
    TonePlayer player(output);
    ASSERT_TRUE(monitor.listen({"mic", ""}, {}));
    player.play(false, true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return monitor.level() > -15; })) << monitor.level();
    EXPECT_NEAR(monitor.level(), 20 * std::log10(0.3) - 3.01, 1.5);
}

TEST_F(MicrophoneTest, aDeadDaemonLeavesNoMicrophoneAndANewOneIsHeardAgain) {
    start({nullSink("one"), microphone}, 1, 2);
    MicMonitor monitor(m_devices, m_scheduler);
    ASSERT_TRUE(monitor.listen({"mic", ""}, {}));
    m_daemon.kill();
    ASSERT_TRUE(hasDevices(0, 0));
    EXPECT_TRUE(listMicrophones(m_devices).empty());
    EXPECT_EQ(m_devices.authorizationStatus(MediaType::audio), AuthorizationStatus::authorized);
    EXPECT_EQ(monitor.listening(), "mic");
    start({nullSink("one"), microphone}, 1, 2);
    const Sine sine(m_daemon, "one", 440, 0.5);
    EXPECT_TRUE(QTest::qWaitFor([&] { return monitor.level() > -12; }, SoundDaemon::patience));
}

TEST_F(MicrophoneTest, aMicrophoneThatVanishesIsNotReplacedByAnother) {
    start({nullSink("one"), nullSink("two"), microphone,
           "module-remap-source master=two.monitor source_name=other"},
          2, 4);
    MicMonitor monitor(m_devices, m_scheduler);
    ASSERT_TRUE(monitor.listen({"mic", ""}, {}));
    ASSERT_TRUE(QTest::qWaitFor([&] {
        return m_daemon.run("pactl", {"list", "short", "source-outputs"}).count('\n') == 3;
    })) << "two remaps and ours";
    m_daemon.run("pactl", {"unload-module", "3"}); // protocol 0, one 1, two 2
    ASSERT_TRUE(hasDevices(2, 3));
    EXPECT_EQ(listMicrophones(m_devices).size(), 1u);
    const Sine sine(m_daemon, "two", 440, 0.5);
    QTest::qWait(500);
    EXPECT_LT(monitor.level(), -100);
    EXPECT_FALSE(monitor.listen({"mic", ""}, {})) << "its input can't be made any more";
}

TEST_F(MicrophoneTest, withoutAServerAccessIsGrantedAndTheListIsEmpty) {
    std::optional<bool> answer;
    QObject page;
    requestCaptureAccess(m_devices, MediaType::audio, &page, [&](bool allowed) { answer = allowed; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return answer.has_value(); }));
    EXPECT_EQ(answer, true);
    EXPECT_TRUE(listMicrophones(m_devices).empty());
    MicMonitor monitor(m_devices, m_scheduler);
    EXPECT_FALSE(monitor.listen({"mic", ""}, {}));
}

TEST_F(MicrophoneTest, nothingWaitsForAServerThatHangs) {
    start({nullSink("one"), microphone}, 1, 2);
    ::kill(pid_t(m_daemon.processID()), SIGSTOP);
    QElapsedTimer time;
    time.start();
    {
        LinuxAudioObjects audio(m_server);
        LinuxToneOutput output(m_server);
        TonePlayer player(output);
        MicMonitor monitor(m_devices, m_scheduler);
        player.play(true, true);
        EXPECT_TRUE(monitor.listen({"mic", ""}, {}));
        EXPECT_EQ(
            audio.numbers(AudioObjects::systemObject, fourCharCode("dev#"), fourCharCode("glob"))->size(),
            1u);
        monitor.stop();
        PulseServer second(m_daemon.address());
        EXPECT_EQ(second.snapshot()->server, PulseSnapshot::Server::connecting);
    }
    EXPECT_LT(time.elapsed(), 500);
    ::kill(pid_t(m_daemon.processID()), SIGCONT);
}

TEST_F(MicrophoneTest, withoutCamerasTheListIsEmpty) {
    const TemporaryFolder folder;
    LinuxCaptureDevices devices(m_server, folder.path());
    EXPECT_EQ(devices.authorizationStatus(MediaType::video), AuthorizationStatus::authorized);
    EXPECT_TRUE(listCameras(devices).empty());

    folder.write("video0", "no camera");
    EXPECT_EQ(devices.authorizationStatus(MediaType::video), AuthorizationStatus::notDetermined);
    std::optional<bool> answer;
    QObject page;
    requestCaptureAccess(devices, MediaType::video, &page, [&](bool allowed) { answer = allowed; });
    EXPECT_EQ(answer, std::nullopt) << "the list is made away from the main thread";
    EXPECT_TRUE(QTest::qWaitFor([&] { return answer.has_value(); }, SoundDaemon::patience));
    EXPECT_EQ(answer, true);
    EXPECT_EQ(devices.authorizationStatus(MediaType::video), AuthorizationStatus::authorized);
    EXPECT_EQ(devices.makeSession(MediaType::video, "/dev/video99", nullptr), nullptr);
}

} // namespace
} // namespace tessivo

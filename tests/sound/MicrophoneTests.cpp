#include "app/readers/CaptureAccess.h"
#include "app/readers/CaptureTaps.h"
#include "app/readers/MicMonitor.h"
#include "app/readers/Readers.h"
#include "app/readers/TonePlayer.h"
#include "kit/session/MicReading.h"
#include "platform/linux/LinuxAudioObjects.h"
#include "platform/linux/LinuxCaptureDevices.h"
#include "platform/linux/LinuxToneOutput.h"
#include "platform/qt/QtScheduler.h"
#include "tests/platform/linux/CapturedTree.h"
#include "tests/sound/SoundTest.h"

#include <cmath>
#include <numbers>
#include <signal.h>

namespace tessivo {
namespace {

/// A source that says of itself that it is a sound card's.
QString card(const QString& name, const QString& master = "one", const QString& more = {}) {
    return "module-remap-source master=" + master + ".monitor source_name=" + name +
           " source_properties='device.class=sound device.description=\"Inner Microphone\"' " + more;
}

const QString microphone = card("mic");

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
    std::optional<std::size_t> microphones() const {
        const auto list = listMicrophones(m_devices).devices;
        return list ? std::optional(list->size()) : std::nullopt;
    }

    CapturedTree m_tree; ///< a computer that tells nothing of its hardware
    LinuxCaptureDevices m_devices{m_server, "/dev", m_tree.tree()};
    QtScheduler m_scheduler;
};

TEST_F(MicrophoneTest, whatTheServerMakesItselfIsNoMicrophone) {
    start({nullSink("one"), microphone, "module-remap-source master=one.monitor source_name=made",
           "module-null-source source_name=null"},
          1, 4);
    EXPECT_EQ(listMicrophones(m_devices).devices, (std::vector<CaptureDevice>{{"mic", "Inner Microphone"}}));
    for (const char* name : {"one.monitor", "made", "null"})
        EXPECT_EQ(m_devices.makeSession(MediaType::audio, name, nullptr), nullptr);
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
    start({nullSink("one", 8), card("mic", "one", "channels=8")}, 1, 2);
    MicMonitor monitor(m_devices, m_scheduler);
    LinuxToneOutput output(m_server);
    TonePlayer player(output);
    ASSERT_TRUE(monitor.listen({"mic", ""}, {}));
    player.play(false, true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return monitor.level() > -15; })) << monitor.level();
    EXPECT_NEAR(monitor.level(), 20 * std::log10(0.3) - 3.01, 1.5);
}

TEST_F(MicrophoneTest, aDeadDaemonLeavesNoListAndANewOneIsHeardAgain) {
    start({nullSink("one"), microphone}, 1, 2);
    MicMonitor monitor(m_devices, m_scheduler);
    ASSERT_TRUE(monitor.listen({"mic", ""}, {}));
    m_daemon.kill();
    ASSERT_TRUE(hasDevices(0, 0));
    EXPECT_EQ(microphones(), std::nullopt);
    EXPECT_EQ(m_devices.authorizationStatus(MediaType::audio), AuthorizationStatus::authorized);
    EXPECT_EQ(monitor.listening(), "mic");
    start({nullSink("one"), microphone}, 1, 2);
    EXPECT_EQ(microphones(), 1u);
    const Sine sine(m_daemon, "one", 440, 0.5);
    EXPECT_TRUE(QTest::qWaitFor([&] { return monitor.level() > -12; }, SoundDaemon::patience));
}

TEST_F(MicrophoneTest, aMicrophoneThatVanishesIsNotReplacedByAnother) {
    start({nullSink("one"), nullSink("two"), microphone, card("other", "two")}, 2, 4);
    MicMonitor monitor(m_devices, m_scheduler);
    ASSERT_TRUE(monitor.listen({"mic", ""}, {}));
    ASSERT_TRUE(QTest::qWaitFor([&] {
        return m_daemon.run("pactl", {"list", "short", "source-outputs"}).count('\n') == 3;
    })) << "two remaps and ours";
    m_daemon.run("pactl", {"unload-module", "3"}); // protocol 0, one 1, two 2
    ASSERT_TRUE(hasDevices(2, 3));
    EXPECT_EQ(microphones(), 1u);
    const Sine sine(m_daemon, "two", 440, 0.5);
    QTest::qWait(500);
    EXPECT_LT(monitor.level(), -100);
    EXPECT_FALSE(monitor.listen({"mic", ""}, {})) << "its input can't be made any more";
}

TEST_F(MicrophoneTest, withoutAServerAccessIsGrantedAndThereIsNoList) {
    std::optional<bool> answer;
    QObject page;
    requestCaptureAccess(m_devices, MediaType::audio, &page, [&](bool allowed) { answer = allowed; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return answer.has_value(); }));
    EXPECT_EQ(answer, true) << "it is no question of privacy";
    MicMonitor monitor(m_devices, m_scheduler);
    EXPECT_FALSE(monitor.listen({"mic", ""}, {}));

    const CaptureList noService{.fault = CaptureList::Fault::noService};
    const CaptureList noDriver{.fault = CaptureList::Fault::noDriver};
    EXPECT_EQ(listMicrophones(m_devices), noService);
    m_tree.add("sys/bus/pci/devices/0000:02:00.3/vendor = 0x106b");
    m_tree.add("sys/bus/pci/devices/0000:02:00.3/class = 0x040100");
    EXPECT_EQ(listMicrophones(m_devices), noDriver);
    start({nullSink("one")}, 1, 1);
    EXPECT_EQ(listMicrophones(m_devices), noDriver) << "a server can't list what the kernel doesn't drive";
    m_daemon.kill();
    ASSERT_TRUE(hasDevices(0, 0));
    m_tree.add("proc/asound/cards | \\x200 [USB            ]: USB-Audio - USB Audio\\x0a");
    EXPECT_EQ(listMicrophones(m_devices), noService) << "a card, and no server";
    m_tree.remove("sys");
    start({nullSink("one")}, 1, 1);
    EXPECT_EQ(microphones(), 0u) << "read, and none";
    m_tree.add("proc/asound/pcm = 00-00: ALC295 Analog : ALC295 Analog : playback 1 : capture 1");
    EXPECT_EQ(microphones(), 0u) << "a desktop's line-in, with nothing in it";
    m_tree.add("sys/class/dmi/id/product_name = MacBookPro14,1");
    EXPECT_EQ(listMicrophones(m_devices), noService) << "a laptop's inputs are switched off in the server";
    m_daemon.run("pactl", {"load-module", "module-remap-source", "master=one.monitor", "source_name=line",
                           "source_properties=device.class=sound"});
    ASSERT_TRUE(hasDevices(1, 2));
    EXPECT_EQ(microphones(), 1u);
}

TEST_F(MicrophoneTest, aServerThatNeverAnswersIsWaitedForAWhile) {
    start({nullSink("one"), microphone}, 1, 2);
    ::kill(pid_t(m_daemon.processID()), SIGSTOP);
    LinuxCaptureDevices devices(std::make_shared<PulseServer>(m_daemon.address()), "/dev", m_tree.tree());
    std::optional<bool> answer;
    QObject page;
    requestCaptureAccess(devices, MediaType::audio, &page, [&](bool allowed) { answer = allowed; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return answer.has_value(); }, SoundDaemon::patience));
    EXPECT_EQ(answer, true);
    EXPECT_EQ(listMicrophones(devices), CaptureList{.fault = CaptureList::Fault::noService});
    ::kill(pid_t(m_daemon.processID()), SIGCONT);
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return listMicrophones(devices).devices.has_value(); }, SoundDaemon::patience));
}

TEST_F(MicrophoneTest, aSourceThatTheServerRefusesHasAFaultAndAnotherOneWaits) {
    start({nullSink("one"), microphone}, 1, 2);
    const auto streams = [this] {
        return m_daemon.run("pactl", {"list", "short", "source-outputs"}).count('\n');
    };
    const auto atRest = streams();
    const auto faultOfListening = [this] {
        const Sine sine(m_daemon, "one", 440, 0.5);
        MicMonitor monitor(m_devices, m_scheduler);
        std::optional<OpenFault> fault;
        EXPECT_TRUE(monitor.listen({"mic", ""}, {}, [&](OpenFault what) { fault = what; }));
        EXPECT_TRUE(QTest::qWaitFor([&] { return fault || monitor.level() > -12; }, SoundDaemon::patience));
        EXPECT_EQ(monitor.listening().has_value(), !fault.has_value());
        return fault;
    };
    EXPECT_EQ(faultOfListening(), std::nullopt);
    m_daemon.run("pactl", {"suspend-source", "mic", "1"});
    EXPECT_EQ(faultOfListening(), OpenFault::busy) << "held back";
    m_daemon.run("pactl", {"suspend-source", "mic", "0"});
    EXPECT_EQ(faultOfListening(), std::nullopt);

    // A source serves so many and no more. The stream of before has to be gone, or it takes a place.
    constexpr int most = 256;
    ASSERT_TRUE(QTest::qWaitFor([&] { return streams() == atRest; }, SoundDaemon::patience));
    std::vector<std::shared_ptr<CaptureSession>> others;
    for (int i = 0; i < most; ++i) {
        others.push_back(m_devices.makeSession(MediaType::audio, "mic", std::make_shared<LevelTap>()));
        others.back()->startRunning();
    }
    ASSERT_TRUE(QTest::qWaitFor([&] { return streams() == atRest + most; }, SoundDaemon::patience));
    EXPECT_EQ(faultOfListening(), OpenFault::broken);
    others.clear();
    EXPECT_TRUE(QTest::qWaitFor([&] { return faultOfListening() == std::nullopt; }, SoundDaemon::patience));
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
            audio.numbers({AudioObjects::systemObject, fourCharCode("dev#"), fourCharCode("glob")})->size(),
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
    LinuxCaptureDevices devices(m_server, folder.path(), m_tree.tree());
    EXPECT_EQ(devices.authorizationStatus(MediaType::video), AuthorizationStatus::authorized);
    const CaptureList none{.devices = std::vector<CaptureDevice>()};
    EXPECT_EQ(listCameras(devices), none);
    m_tree.add("sys/bus/usb/devices/1-5:1.0/bInterfaceClass = 0e");
    EXPECT_EQ(listCameras(devices), CaptureList{.fault = CaptureList::Fault::noDriver});
    EXPECT_EQ(devices.authorizationStatus(MediaType::video), AuthorizationStatus::authorized);
    m_tree.remove("sys");

    folder.write("video0", "no camera");
    EXPECT_EQ(devices.authorizationStatus(MediaType::video), AuthorizationStatus::notDetermined);
    std::optional<bool> answer;
    QObject page;
    requestCaptureAccess(devices, MediaType::video, &page, [&](bool allowed) { answer = allowed; });
    EXPECT_EQ(answer, std::nullopt) << "the list is made away from the main thread";
    EXPECT_TRUE(QTest::qWaitFor([&] { return answer.has_value(); }, SoundDaemon::patience));
    EXPECT_EQ(answer, true);
    EXPECT_EQ(devices.authorizationStatus(MediaType::video), AuthorizationStatus::authorized);
    EXPECT_EQ(listCameras(devices), none);
    EXPECT_EQ(devices.makeSession(MediaType::video, "/dev/video99", nullptr), nullptr);
}

} // namespace
} // namespace tessivo

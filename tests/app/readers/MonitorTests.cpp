#include "app/readers/CameraMonitor.h"
#include "app/readers/CaptureAccess.h"
#include "app/readers/MicMonitor.h"
#include "kit/session/MicReading.h"
#include "platform/simulated/ManualScheduler.h"
#include "platform/simulated/SimulatedControls.h"

#include <future>
#include <gtest/gtest.h>
#include <limits>

namespace tessivo {
namespace {

using namespace std::chrono_literals;

constexpr double rest = -160;
const CaptureDevice first{"first", "First"}, second{"second", "Second"}, hanging{"hangs", "Hangs"},
    broken{"broken", "Broken"};

/// A Mac with four microphones and four cameras: the third never ends opening, the fourth can't be set up.
class CaptureTest : public ::testing::Test {
protected:
    CaptureTest() {
        for (const MediaType type : {MediaType::audio, MediaType::video}) {
            m_controls.setAccess(type, AuthorizationStatus::authorized);
            for (const CaptureDevice& device : {first, second, hanging, broken})
                m_controls.addDevice(type, device);
            m_controls.setOpens(type, broken.uniqueID, false);
        }
        m_controls.setOpening(hanging.uniqueID, std::nullopt);
    }

    bool isOpen(const CaptureDevice& device) const { return m_controls.isOpen(device.uniqueID); }
    bool speak(const CaptureDevice& device, double level) { return m_controls.speak(device.uniqueID, level); }
    bool sendFrames(const CaptureDevice& device, std::size_t count) {
        return m_controls.sendFrames(device.uniqueID, count);
    }

    /// Waits until the capture queue has done what it was given.
    void settle() {
        std::promise<void> done;
        m_devices.captureQueue().async([&] { done.set_value(); });
        done.get_future().wait();
    }
    /// Keeps the capture queue from all it is given, until the promise is kept.
    std::promise<void> holdQueue() {
        std::promise<void> gate;
        m_devices.captureQueue().async([held = gate.get_future().share()] { held.wait(); });
        return gate;
    }

    ManualScheduler m_scheduler;
    SimulatedPlatform m_mac{{}, m_scheduler};
    SimulatedControls m_controls{m_mac};
    CaptureDevices& m_devices = m_mac.captureDevices();
};

class MicMonitorTest : public CaptureTest {
protected:
    bool listen(const CaptureDevice& device) {
        return m_monitor.listen(device, [this](double level) { m_reading.hear(level); });
    }
    /// One window of the meter, after which the level is read.
    double window() {
        m_scheduler.advance(100ms);
        return m_monitor.level();
    }

    MicMonitor m_monitor{m_devices, m_scheduler};
    MicReading m_reading;
};

TEST_F(MicMonitorTest, eachWindowShowsItsLoudestBufferAndThePeakOnlyRises) {
    ASSERT_TRUE(listen(first));
    EXPECT_TRUE(speak(first, -40));
    EXPECT_TRUE(speak(first, -20));
    EXPECT_TRUE(speak(first, -50));
    EXPECT_EQ(m_monitor.level(), rest) << "nothing shows before the window is over";
    EXPECT_NEAR(window(), -20, 1e-4);
    EXPECT_TRUE(speak(first, -30));
    EXPECT_NEAR(window(), -30, 1e-4);
    EXPECT_NEAR(window(), -30, 1e-4) << "a window without a buffer leaves the level";
    EXPECT_NEAR(*m_reading.peak, -20, 1e-4);

    m_monitor.stop();
    EXPECT_EQ(m_monitor.level(), rest);
    ASSERT_TRUE(listen(first));
    EXPECT_TRUE(speak(first, -25));
    EXPECT_NEAR(window(), -25, 1e-4);
    EXPECT_NEAR(*m_reading.peak, -20, 1e-4) << "kept from the earlier listen";
}

TEST_F(MicMonitorTest, oddBuffersAreNoSoundThatWasHeard) {
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    constexpr float infinite = std::numeric_limits<float>::infinity();
    struct {
        const char* what;
        std::vector<float> samples;
        int channels;
        std::optional<double> level;
    } const cases[] = {
        {"empty", {}, 2, std::nullopt},
        {"no channels", {0.5f, 0.5f}, 0, std::nullopt},
        {"not a number", {nan, nan}, 1, std::nullopt},
        {"infinite", {infinite, -infinite}, 1, std::nullopt},
        {"exact zeros", {0, 0, 0, 0}, 2, rest},
        {"the loud one of eight", {0, 0, 0, 0, 0, 0.1f, 0, 0, 0, 0, 0, 0, 0, 0.1f, 0, 0}, 8, -20},
        {"a good channel beside a broken one", {nan, 0.1f, nan, 0.1f}, 2, -20},
        {"odd length", {0.1f, 0.01f, 0.1f}, 2, -20},
        {"more channels than samples", {0.1f}, 8, -20},
    };
    for (const auto& [what, samples, channels, level] : cases) {
        SCOPED_TRACE(what);
        std::optional<double> heard;
        ASSERT_TRUE(m_monitor.listen(first, [&](double value) { heard = value; }));
        EXPECT_TRUE(m_controls.feed(first.uniqueID, samples, channels));
        m_scheduler.advance(100ms);
        EXPECT_EQ(heard.has_value(), level.has_value());
        EXPECT_NEAR(heard.value_or(0), level.value_or(0), 0.05);
    }
}

TEST_F(MicMonitorTest, aSecondDeviceClosesTheFirst) {
    ASSERT_TRUE(listen(first));
    EXPECT_TRUE(speak(first, -20));
    window();
    std::vector<std::optional<std::string>> told;
    QObject::connect(&m_monitor, &MicMonitor::listeningChanged, &m_monitor,
                     [&] { told.push_back(m_monitor.listening()); });
    auto gate = holdQueue();
    ASSERT_TRUE(listen(second));
    EXPECT_EQ(told, (std::vector<std::optional<std::string>>{std::nullopt, "second"}));
    EXPECT_EQ(m_monitor.level(), rest);
    EXPECT_TRUE(isOpen(first) && !isOpen(second)) << "the queue opens and closes, not the main thread";
    EXPECT_TRUE(speak(first, 0));
    EXPECT_EQ(window(), rest) << "a late buffer of the first counts for nobody";
    gate.set_value();
    settle();
    EXPECT_TRUE(!isOpen(first) && isOpen(second));
    EXPECT_TRUE(speak(second, -30));
    EXPECT_NEAR(window(), -30, 1e-4);
}

TEST_F(MicMonitorTest, aDeviceThatCantBeSetUpLeavesNothingOpen) {
    ASSERT_TRUE(listen(first));
    EXPECT_FALSE(listen(broken));
    EXPECT_EQ(m_monitor.listening(), std::nullopt);
    settle();
    EXPECT_FALSE(isOpen(first));
    EXPECT_EQ(m_scheduler.pending(), 0u);
    int told = 0;
    QObject::connect(&m_monitor, &MicMonitor::listeningChanged, &m_monitor, [&] { ++told; });
    QObject::connect(&m_monitor, &MicMonitor::levelChanged, &m_monitor, [&] { ++told; });
    m_monitor.stop();
    EXPECT_EQ(told, 0) << "what is at rest already tells nobody";
}

TEST_F(MicMonitorTest, listenersMayStopOrLetGoOfTheMonitor) {
    ASSERT_TRUE(m_monitor.listen(first, [this](double) { m_monitor.stop(); }));
    EXPECT_TRUE(speak(first, -20));
    EXPECT_EQ(window(), rest);
    EXPECT_EQ(m_scheduler.pending(), 0u);

    auto monitor = std::make_unique<MicMonitor>(m_devices, m_scheduler);
    bool told = false;
    QObject::connect(monitor.get(), &MicMonitor::levelChanged, [&] { monitor.reset(); });
    ASSERT_TRUE(monitor->listen(first, [&](double) { told = true; }));
    EXPECT_TRUE(speak(first, -20));
    m_scheduler.advance(100ms);
    EXPECT_FALSE(monitor || told);
    settle();
    EXPECT_FALSE(isOpen(first));
}

TEST_F(MicMonitorTest, aDeviceThatDoesntOpenIsStoppedAndTold) {
    std::vector<OpenFault> told;
    for (const OpenFault fault : {OpenFault::broken, OpenFault::busy, OpenFault::refused}) {
        m_controls.failOpening(first.uniqueID, fault);
        ASSERT_TRUE(m_monitor.listen(
            first, [](double) { ADD_FAILURE(); },
            [&](OpenFault what) {
                EXPECT_EQ(m_monitor.listening(), std::nullopt) << "stopped already";
                told.push_back(what);
            }));
        settle();
        EXPECT_EQ(m_monitor.listening(), "first") << "not before the next window";
        window();
    }
    EXPECT_EQ(told, (std::vector{OpenFault::broken, OpenFault::busy, OpenFault::refused}));
    EXPECT_EQ(m_scheduler.pending(), 0u);

    const auto nobody = [](OpenFault) { ADD_FAILURE() << "of the one before"; };
    ASSERT_TRUE(m_monitor.listen(first, {}, nobody));
    settle();
    ASSERT_TRUE(m_monitor.listen(second, {}, nobody));
    window();
    EXPECT_EQ(m_monitor.listening(), "second");
}

class CameraMonitorTest : public CaptureTest {
protected:
    bool show(const CaptureDevice& device) {
        return m_monitor.show(device, [this] { ++m_proofs; });
    }

    CameraMonitor m_monitor{m_devices, m_scheduler};
    int m_proofs = 0;
};

TEST_F(CameraMonitorTest, threeFramesProveNothingAndFourDoOnce) {
    ASSERT_TRUE(show(first));
    EXPECT_TRUE(sendFrames(first, 3));
    m_scheduler.advance(1min);
    EXPECT_FALSE(m_monitor.framesSeen());
    EXPECT_EQ(m_proofs, 0);
    EXPECT_TRUE(sendFrames(first, 1));
    m_scheduler.advance(249ms);
    EXPECT_FALSE(m_monitor.framesSeen());
    m_scheduler.advance(1ms);
    EXPECT_TRUE(m_monitor.framesSeen());
    EXPECT_TRUE(sendFrames(first, 100));
    m_scheduler.advance(1min);
    EXPECT_EQ(m_proofs, 1);
}

TEST_F(CameraMonitorTest, thePictureIsTheNewestOfTheOpenDevice) {
    EXPECT_TRUE(m_monitor.picture().isNull());
    ASSERT_TRUE(show(first));
    EXPECT_TRUE(m_monitor.picture().isNull());
    EXPECT_TRUE(sendFrames(first, 4));
    EXPECT_EQ(m_monitor.picture(), testPicture(3));
    EXPECT_TRUE(sendFrames(first, 1));
    EXPECT_EQ(m_monitor.picture(), testPicture(0));
    m_scheduler.advance(250ms);
    ASSERT_TRUE(m_monitor.framesSeen());
    auto gate = holdQueue();
    ASSERT_TRUE(show(second));
    EXPECT_EQ(m_monitor.showing(), "second");
    EXPECT_FALSE(m_monitor.framesSeen());
    EXPECT_TRUE(sendFrames(first, 10)) << "it isn't closed yet";
    EXPECT_TRUE(m_monitor.picture().isNull());
    m_scheduler.advance(1s);
    EXPECT_FALSE(m_monitor.framesSeen());

    gate.set_value();
    m_monitor.stop();
    EXPECT_EQ(m_monitor.showing(), std::nullopt);
    settle();
    EXPECT_FALSE(isOpen(first) || isOpen(second));
    EXPECT_FALSE(show(broken));
    EXPECT_EQ(m_proofs, 1);
}

TEST_F(CameraMonitorTest, aCameraThatDoesntOpenIsStoppedAndItsTellerMayLetGoOfTheMonitor) {
    auto monitor = std::make_unique<CameraMonitor>(m_devices, m_scheduler);
    std::optional<OpenFault> told;
    m_controls.failOpening(first.uniqueID, OpenFault::busy);
    ASSERT_TRUE(monitor->show(
        first, [this] { ++m_proofs; },
        [&](OpenFault fault) {
            told = fault;
            monitor.reset();
        }));
    settle();
    m_scheduler.advance(250ms);
    EXPECT_EQ(told, OpenFault::busy);
    EXPECT_TRUE(!monitor && m_proofs == 0);
}

TEST_F(CameraMonitorTest, bothMonitorsShareOneQueueAndAHangingCameraClosesWhenTold) {
    MicMonitor microphone(m_devices, m_scheduler);
    ASSERT_TRUE(show(hanging));
    ASSERT_TRUE(microphone.listen(first, {}));
    EXPECT_EQ(m_monitor.showing(), "hangs");
    EXPECT_FALSE(isOpen(first));
    m_monitor.stop();
    settle();
    EXPECT_TRUE(!isOpen(hanging) && isOpen(first));
}

using CaptureAccess = CaptureTest;

TEST_F(CaptureAccess, onlyAnOpenQuestionIsAsked) {
    const std::pair<AuthorizationStatus, std::optional<bool>> cases[] = {
        {AuthorizationStatus::authorized, true},
        {AuthorizationStatus::denied, false},
        {AuthorizationStatus::restricted, false},
        {AuthorizationStatus::notDetermined, std::nullopt}};
    m_controls.holdPrompts(true);
    QObject page;
    auto gone = std::make_unique<QObject>();
    std::optional<bool> answer, lost;
    for (const auto& [status, expected] : cases) {
        m_controls.setAccess(MediaType::audio, status);
        answer.reset();
        requestCaptureAccess(m_devices, MediaType::audio, &page, [&](bool given) { answer = given; });
        EXPECT_EQ(answer, expected);
    }
    requestCaptureAccess(m_devices, MediaType::audio, gone.get(), [&](bool given) { lost = given; });
    gone.reset();
    m_controls.setAccess(MediaType::audio, AuthorizationStatus::authorized);
    m_scheduler.advance(0ms);
    EXPECT_EQ(answer, true);
    EXPECT_EQ(lost, std::nullopt) << "a page that is gone gets no answer";
}

TEST_F(CaptureAccess, twoDevicesWithOneIdAreOne) {
    for (const MediaType type : {MediaType::audio, MediaType::video}) {
        for (const CaptureDevice& device : {first, second, hanging, broken})
            m_controls.removeDevice(type, device.uniqueID);
        for (const CaptureDevice& device :
             {CaptureDevice{"b", "Second"}, {"a", "Line\nfeed"}, {"b", "Again"}})
            m_controls.addDevice(type, device);
    }
    EXPECT_EQ(listMicrophones(m_devices).devices,
              (std::vector<CaptureDevice>{{"b", "Second"}, {"a", "Line\nfeed"}}));
    EXPECT_EQ(listCameras(m_devices), listMicrophones(m_devices));
}

TEST_F(CaptureAccess, eachKindHasItsSettings) {
    struct : Desktop {
        void openURL(const std::string& url) override { opened += url + "\n"; }
        bool canOpenURL(const std::string& url) const override { return url.ends_with("Camera"); }
        void setPasteboardText(const std::string&) override {}
        std::optional<Paper> paper() const override { return std::nullopt; }
        void coverScreen(QWindow&, QScreen&) override {}
        std::optional<std::vector<std::filesystem::path>> openFiles(const OpenPanel&) override { return {}; }
        std::string opened;
    } desktop;
    openPrivacySettings(desktop, MediaType::video);
    openPrivacySettings(desktop, MediaType::audio);
    EXPECT_EQ(desktop.opened, "x-apple.systempreferences:com.apple.preference.security?Privacy_Camera\n"
                              "x-apple.systempreferences:com.apple.preference.security?Privacy_Microphone\n");
    EXPECT_TRUE(canOpenPrivacySettings(desktop, MediaType::video));
    EXPECT_FALSE(canOpenPrivacySettings(desktop, MediaType::audio));
}

} // namespace
} // namespace tessivo

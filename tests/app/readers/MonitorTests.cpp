#include "app/readers/CameraMonitor.h"
#include "app/readers/CaptureAccess.h"
#include "app/readers/MicMonitor.h"
#include "platform/simulated/ManualScheduler.h"
#include "tests/app/readers/FakeCapture.h"

#include <gtest/gtest.h>
#include <limits>

namespace tessivo {
namespace {

using namespace std::chrono_literals;

constexpr double rest = -160;
const CaptureDevice first{"first", "First"}, second{"second", "Second"}, hanging{"hangs", "Hangs"},
    broken{"broken", "Broken"};

class MicMonitorTest : public ::testing::Test {
protected:
    bool listen(const CaptureDevice& device) {
        return m_monitor.listen(device, [this](double level) { m_reading.hear(level); });
    }
    /// One window of the meter, after which the level is read.
    double window() {
        m_scheduler.advance(100ms);
        return m_monitor.level();
    }

    FakeCapture m_devices;
    ManualScheduler m_scheduler;
    MicMonitor m_monitor{m_devices, m_scheduler};
    MicReading m_reading;
};

TEST_F(MicMonitorTest, eachWindowShowsItsLoudestBufferAndThePeakOnlyRises) {
    ASSERT_TRUE(listen(first));
    m_devices.last().deliver(-40);
    m_devices.last().deliver(-20);
    m_devices.last().deliver(-50);
    EXPECT_EQ(m_monitor.level(), rest) << "nothing shows before the window is over";
    EXPECT_NEAR(window(), -20, 1e-4);
    m_devices.last().deliver(-30);
    EXPECT_NEAR(window(), -30, 1e-4);
    EXPECT_NEAR(window(), -30, 1e-4) << "a window without a buffer leaves the level";
    EXPECT_NEAR(*m_reading.peak, -20, 1e-4);

    m_monitor.stop();
    EXPECT_EQ(m_monitor.level(), rest);
    ASSERT_TRUE(listen(first));
    m_devices.last().deliver(-25);
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
        m_devices.last().deliver(samples, channels);
        m_scheduler.advance(100ms);
        EXPECT_EQ(heard.has_value(), level.has_value());
        EXPECT_NEAR(heard.value_or(0), level.value_or(0), 0.05);
    }
}

TEST_F(MicMonitorTest, aSecondDeviceClosesTheFirst) {
    ASSERT_TRUE(listen(first));
    const auto old = m_devices.sessions.back();
    old->deliver(-20);
    window();
    std::vector<std::optional<std::string>> told;
    QObject::connect(&m_monitor, &MicMonitor::listeningChanged, &m_monitor,
                     [&] { told.push_back(m_monitor.listening()); });
    ASSERT_TRUE(listen(second));
    EXPECT_EQ(told, (std::vector<std::optional<std::string>>{std::nullopt, "second"}));
    EXPECT_EQ(m_monitor.level(), rest);
    EXPECT_TRUE(old->waitFor(&FakeSession::stopped));
    EXPECT_TRUE(m_devices.last().waitFor(&FakeSession::started));
    old->deliver(0);
    EXPECT_EQ(window(), rest) << "a late buffer of the first counts for nobody";
    EXPECT_FALSE(old->mainThread || m_devices.last().mainThread);
}

TEST_F(MicMonitorTest, aDeviceThatCantBeSetUpLeavesNothingOpen) {
    ASSERT_TRUE(listen(first));
    EXPECT_FALSE(listen(broken));
    EXPECT_EQ(m_monitor.listening(), std::nullopt);
    EXPECT_TRUE(m_devices.sessions[0]->waitFor(&FakeSession::stopped));
    EXPECT_EQ(m_scheduler.pending(), 0u);
    int told = 0;
    QObject::connect(&m_monitor, &MicMonitor::listeningChanged, &m_monitor, [&] { ++told; });
    QObject::connect(&m_monitor, &MicMonitor::levelChanged, &m_monitor, [&] { ++told; });
    m_monitor.stop();
    EXPECT_EQ(told, 0) << "what is at rest already tells nobody";
}

TEST_F(MicMonitorTest, listenersMayStopOrLetGoOfTheMonitor) {
    ASSERT_TRUE(m_monitor.listen(first, [this](double) { m_monitor.stop(); }));
    m_devices.last().deliver(-20);
    EXPECT_EQ(window(), rest);
    EXPECT_EQ(m_scheduler.pending(), 0u);

    auto monitor = std::make_unique<MicMonitor>(m_devices, m_scheduler);
    bool told = false;
    QObject::connect(monitor.get(), &MicMonitor::levelChanged, [&] { monitor.reset(); });
    ASSERT_TRUE(monitor->listen(first, [&](double) { told = true; }));
    m_devices.last().deliver(-20);
    m_scheduler.advance(100ms);
    EXPECT_FALSE(monitor || told);
    EXPECT_TRUE(m_devices.last().waitFor(&FakeSession::stopped));
}

TEST_F(MicMonitorTest, aDeviceThatDoesntOpenIsStoppedAndTold) {
    std::vector<OpenFault> told;
    for (const OpenFault fault : {OpenFault::broken, OpenFault::busy, OpenFault::refused}) {
        ASSERT_TRUE(m_monitor.listen(
            first, [](double) { ADD_FAILURE(); },
            [&](OpenFault what) {
                EXPECT_EQ(m_monitor.listening(), std::nullopt) << "stopped already";
                told.push_back(what);
            }));
        m_devices.last().failToOpen(fault);
        EXPECT_EQ(m_monitor.listening(), "first") << "not before the next window";
        window();
        EXPECT_TRUE(m_devices.last().waitFor(&FakeSession::stopped));
    }
    EXPECT_EQ(told, (std::vector{OpenFault::broken, OpenFault::busy, OpenFault::refused}));
    EXPECT_EQ(m_scheduler.pending(), 0u);

    const auto old = m_devices.sessions.back();
    ASSERT_TRUE(m_monitor.listen(second, {}, [](OpenFault) { ADD_FAILURE() << "of the one before"; }));
    old->failToOpen(OpenFault::broken);
    window();
    EXPECT_EQ(m_monitor.listening(), "second");
}

class CameraMonitorTest : public ::testing::Test {
protected:
    bool show(const CaptureDevice& device) {
        return m_monitor.show(device, [this] { ++m_proofs; });
    }

    FakeCapture m_devices;
    ManualScheduler m_scheduler;
    CameraMonitor m_monitor{m_devices, m_scheduler};
    int m_proofs = 0;
};

TEST_F(CameraMonitorTest, threeFramesProveNothingAndFourDoOnce) {
    ASSERT_TRUE(show(first));
    m_devices.last().deliverFrames(3);
    m_scheduler.advance(1min);
    EXPECT_FALSE(m_monitor.framesSeen());
    EXPECT_EQ(m_proofs, 0);
    m_devices.last().deliverFrames(1);
    m_scheduler.advance(249ms);
    EXPECT_FALSE(m_monitor.framesSeen());
    m_scheduler.advance(1ms);
    EXPECT_TRUE(m_monitor.framesSeen());
    m_devices.last().deliverFrames(100);
    m_scheduler.advance(1min);
    EXPECT_EQ(m_proofs, 1);
}

TEST_F(CameraMonitorTest, thePictureIsTheNewestOfTheOpenDevice) {
    EXPECT_TRUE(m_monitor.picture().isNull());
    ASSERT_TRUE(show(first));
    EXPECT_TRUE(m_monitor.picture().isNull());
    m_devices.last().deliverFrames(4, qRgb(255, 0, 0));
    m_devices.last().deliverFrames(1, qRgb(0, 255, 0));
    EXPECT_EQ(m_monitor.picture().pixel(0, 0), qRgb(0, 255, 0));
    m_scheduler.advance(250ms);
    ASSERT_TRUE(m_monitor.framesSeen());
    const auto old = m_devices.sessions.back();
    ASSERT_TRUE(show(second));
    EXPECT_EQ(m_monitor.showing(), "second");
    EXPECT_FALSE(m_monitor.framesSeen());
    EXPECT_TRUE(m_monitor.picture().isNull());
    EXPECT_TRUE(old->waitFor(&FakeSession::stopped));
    old->deliverFrames(10);
    m_scheduler.advance(1s);
    EXPECT_FALSE(m_monitor.framesSeen());

    m_monitor.stop();
    EXPECT_EQ(m_monitor.showing(), std::nullopt);
    EXPECT_TRUE(m_devices.last().waitFor(&FakeSession::stopped));
    EXPECT_FALSE(show(broken));
    EXPECT_EQ(m_proofs, 1);
}

TEST_F(CameraMonitorTest, aCameraThatDoesntOpenIsStoppedAndItsTellerMayLetGoOfTheMonitor) {
    auto monitor = std::make_unique<CameraMonitor>(m_devices, m_scheduler);
    std::optional<OpenFault> told;
    ASSERT_TRUE(monitor->show(
        first, [this] { ++m_proofs; },
        [&](OpenFault fault) {
            told = fault;
            monitor.reset();
        }));
    m_devices.last().failToOpen(OpenFault::busy);
    m_scheduler.advance(250ms);
    EXPECT_EQ(told, OpenFault::busy);
    EXPECT_TRUE(!monitor && m_proofs == 0);
    EXPECT_TRUE(m_devices.last().waitFor(&FakeSession::stopped));
}

TEST_F(CameraMonitorTest, bothMonitorsShareOneQueueAndAHangingCameraClosesWhenTold) {
    MicMonitor microphone(m_devices, m_scheduler);
    ASSERT_TRUE(show(hanging));
    const auto stuck = m_devices.sessions.back();
    ASSERT_TRUE(microphone.listen(first, {}));
    EXPECT_EQ(m_monitor.showing(), "hangs");
    m_monitor.stop();
    EXPECT_TRUE(stuck->waitFor(&FakeSession::stopped));
    EXPECT_FALSE(stuck->started);
    EXPECT_TRUE(m_devices.last().waitFor(&FakeSession::started));
}

TEST(CaptureAccess, onlyAnOpenQuestionIsAsked) {
    const std::pair<AuthorizationStatus, std::optional<bool>> cases[] = {
        {AuthorizationStatus::authorized, true},
        {AuthorizationStatus::denied, false},
        {AuthorizationStatus::restricted, false},
        {AuthorizationStatus::notDetermined, std::nullopt}};
    for (const auto& [status, expected] : cases) {
        FakeCapture devices;
        devices.status = status;
        auto page = std::make_unique<QObject>();
        std::optional<bool> answer;
        requestCaptureAccess(devices, MediaType::audio, page.get(), [&](bool given) { answer = given; });
        EXPECT_EQ(answer, expected);
        EXPECT_EQ(bool(devices.question), !expected.has_value());
        if (!devices.question) continue;
        devices.question(true);
        EXPECT_EQ(answer, true);
        page.reset();
        answer.reset();
        devices.question(false);
        EXPECT_EQ(answer, std::nullopt) << "a page that is gone gets no answer";
    }
}

TEST(CaptureAccess, twoDevicesWithOneIdAreOne) {
    FakeCapture devices;
    devices.list = {{"b", "Second"}, {"a", "Line\nfeed"}, {"b", "Again"}};
    EXPECT_EQ(listMicrophones(devices).devices,
              (std::vector<CaptureDevice>{{"b", "Second"}, {"a", "Line\nfeed"}}));
    EXPECT_EQ(listCameras(devices), listMicrophones(devices));
}

TEST(CaptureAccess, eachKindHasItsSettings) {
    struct : Desktop {
        void openURL(const std::string& url) override { opened += url + "\n"; }
        bool canOpenURL(const std::string& url) const override { return url.ends_with("Camera"); }
        void setPasteboardText(const std::string&) override {}
        std::optional<Paper> paper() const override { return std::nullopt; }
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

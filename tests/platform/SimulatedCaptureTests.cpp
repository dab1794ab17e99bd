#include "kit/hardware/LevelMeter.h"
#include "platform/simulated/ManualScheduler.h"
#include "platform/simulated/SimulatedControls.h"

#include <atomic>
#include <future>
#include <gmock/gmock.h>
#include <mutex>
#include <thread>

using namespace tessivo;
using namespace std::chrono_literals;
using testing::ElementsAre;

namespace {

/// Keeps what came, and on which threads.
class Recorder final : public CaptureDelegate {
public:
    void audio(const AudioBuffer& buffer) override {
        const std::lock_guard lock(m_mutex);
        m_levels.push_back(LevelMeter::decibels(buffer.samples));
        m_threads.insert(std::this_thread::get_id());
    }
    void video(const QImage& frame) override {
        const std::lock_guard lock(m_mutex);
        m_frames.push_back(frame);
        m_threads.insert(std::this_thread::get_id());
    }
    std::vector<double> levels() const {
        const std::lock_guard lock(m_mutex);
        return m_levels;
    }
    std::vector<QImage> frames() const {
        const std::lock_guard lock(m_mutex);
        return m_frames;
    }
    std::set<std::thread::id> threads() const {
        const std::lock_guard lock(m_mutex);
        return m_threads;
    }

private:
    mutable std::mutex m_mutex;
    std::vector<double> m_levels;
    std::vector<QImage> m_frames;
    std::set<std::thread::id> m_threads;
};

class SimulatedCaptureTests : public testing::Test {
protected:
    SimulatedCaptureTests() {
        controls.setAccess(MediaType::audio, AuthorizationStatus::authorized);
        controls.setAccess(MediaType::video, AuthorizationStatus::authorized);
    }
    std::shared_ptr<CaptureSession> session(MediaType type, const std::string& id) {
        return mac->captureDevices().makeSession(type, id, recorder);
    }
    /// Waits, for at most 5 seconds, until the thread of a session has brought about what is asked.
    static bool soon(const std::function<bool()>& condition) {
        for (int i = 0; i < 1000 && !condition(); ++i)
            std::this_thread::sleep_for(5ms);
        return condition();
    }

    static constexpr const char* mic = "BuiltInMicrophoneDevice";
    static constexpr const char* camera = "47B4B64B-7067-4B9C-AD2B-AE273A71F4B5";

    ManualScheduler clock;
    std::unique_ptr<SimulatedPlatform> mac = std::make_unique<SimulatedPlatform>(
        loadMachineFile(std::filesystem::path(TESSIVO_MACHINES) / "macbook-air-m2.json"), clock);
    SimulatedControls controls{*mac};
    std::shared_ptr<Recorder> recorder = std::make_shared<Recorder>();
};

TEST_F(SimulatedCaptureTests, speechArrivesAtItsLevelOnTheSessionsOwnThread) {
    EXPECT_FALSE(controls.speak(mic, -20)) << "nothing is open";
    const auto open = session(MediaType::audio, mic);
    ASSERT_TRUE(open);
    open->startRunning();
    EXPECT_TRUE(controls.isOpen(mic));
    EXPECT_TRUE(controls.speak(mic, -20));
    EXPECT_TRUE(controls.speak(mic, -40));
    EXPECT_TRUE(controls.feed(mic, {}, 1));
    open->stopRunning();
    EXPECT_FALSE(controls.isOpen(mic));
    EXPECT_FALSE(controls.speak(mic, 0)) << "a closed session delivers nothing";
    const auto levels = recorder->levels();
    ASSERT_EQ(levels.size(), 3u);
    EXPECT_NEAR(levels[0], -20, 0.01);
    EXPECT_NEAR(levels[1], -40, 0.01);
    EXPECT_EQ(levels[2], LevelMeter::silence);
    EXPECT_EQ(recorder->threads().size(), 1u);
    EXPECT_FALSE(recorder->threads().contains(std::this_thread::get_id()));
}

TEST_F(SimulatedCaptureTests, aCameraSendsAsManyFramesAsItIsToldAndTheyMove) {
    const auto open = session(MediaType::video, camera);
    open->startRunning();
    EXPECT_TRUE(controls.sendFrames(camera, 3));
    const auto frames = recorder->frames();
    ASSERT_EQ(frames.size(), 3u);
    EXPECT_NE(frames[0], frames[1]);
    controls.keepSending(camera, true);
    EXPECT_TRUE(soon([&] { return recorder->frames().size() >= 6; }));
    controls.removeDevice(MediaType::video, camera);
    controls.sendFrames(camera, 0); // whatever was under way has arrived
    const auto count = recorder->frames().size();
    std::this_thread::sleep_for(100ms);
    EXPECT_EQ(recorder->frames().size(), count);
    EXPECT_TRUE(mac->captureDevices().devices(MediaType::video).empty());
    EXPECT_FALSE(session(MediaType::video, camera));
}

TEST_F(SimulatedCaptureTests, aDeviceThatFailsOrIsDeniedGivesNoSession) {
    controls.setOpens(MediaType::audio, mic, false);
    EXPECT_FALSE(session(MediaType::audio, mic));
    controls.setOpens(MediaType::audio, mic, true);
    EXPECT_TRUE(session(MediaType::audio, mic));
    controls.setAccess(MediaType::audio, AuthorizationStatus::denied);
    EXPECT_FALSE(session(MediaType::audio, mic));
    EXPECT_FALSE(session(MediaType::video, "no such camera"));
}

TEST_F(SimulatedCaptureTests, aSlowDeviceOpensLateAndOneThatNeverOpensIsLetGo) {
    controls.setOpening(camera, std::nullopt);
    const auto stuck = session(MediaType::video, camera);
    auto opening = std::async(std::launch::async, [&] { stuck->startRunning(); });
    EXPECT_EQ(opening.wait_for(30ms), std::future_status::timeout);
    EXPECT_TRUE(controls.isOpen(camera));
    stuck->cancelStart();
    opening.get();
    stuck->stopRunning();
    EXPECT_FALSE(controls.isOpen(camera));

    const auto late = session(MediaType::video, camera);
    opening = std::async(std::launch::async, [&] { late->startRunning(); });
    controls.setOpening(camera, 1ms);
    opening.get();
    EXPECT_TRUE(controls.sendFrames(camera, 1));
}

TEST_F(SimulatedCaptureTests, thePlatformsEndReleasesWhateverIsOpenOrOpening) {
    controls.keepSpeaking(mic, -10);
    controls.setOpening(camera, std::nullopt);
    const auto speaking = session(MediaType::audio, mic);
    speaking->startRunning();
    const auto stuck = session(MediaType::video, camera);
    auto opening = std::async(std::launch::async, [&] { stuck->startRunning(); });
    EXPECT_TRUE(soon([&] { return !recorder->levels().empty() && controls.isOpen(camera); }));
    mac.reset();
    opening.get();
    const auto count = recorder->levels().size();
    std::this_thread::sleep_for(50ms);
    EXPECT_EQ(recorder->levels().size(), count);
}

TEST_F(SimulatedCaptureTests, aThousandCyclesAtFullSpeedLeaveNothingBehind) {
    controls.keepSpeaking(mic, -10);
    controls.keepSending(camera, true);
    for (int i = 0; i < 1000; ++i) {
        const auto open = session(i % 2 ? MediaType::audio : MediaType::video, i % 2 ? mic : camera);
        open->startRunning();
        if (i % 4 < 2) open->stopRunning();
    }
    EXPECT_FALSE(controls.isOpen(mic));
    EXPECT_FALSE(controls.isOpen(camera));
    EXPECT_LE(recorder->threads().size(), 1000u);
}

TEST_F(SimulatedCaptureTests, accessIsAskedForOnceAndAnsweredLater) {
    auto& devices = mac->captureDevices();
    std::vector<bool> answers;
    const auto ask = [&](MediaType type) {
        devices.requestAccess(type, [&](bool allowed) { answers.push_back(allowed); });
    };
    controls.setAccess(MediaType::audio, AuthorizationStatus::notDetermined);
    ask(MediaType::audio);
    EXPECT_TRUE(answers.empty()) << "never within the question";
    clock.advance(0ms);
    EXPECT_THAT(answers, ElementsAre(true));
    EXPECT_EQ(devices.authorizationStatus(MediaType::audio), AuthorizationStatus::authorized);

    for (const auto status : {AuthorizationStatus::denied, AuthorizationStatus::restricted}) {
        controls.setAccess(MediaType::audio, status);
        ask(MediaType::audio);
        clock.advance(0ms);
    }
    EXPECT_THAT(answers, ElementsAre(true, false, false));

    controls.setAccess(MediaType::video, AuthorizationStatus::notDetermined);
    controls.holdPrompts(true);
    ask(MediaType::video);
    clock.advance(1h);
    EXPECT_EQ(answers.size(), 3u);
    controls.setAccess(MediaType::audio, AuthorizationStatus::authorized);
    controls.setAccess(MediaType::video, AuthorizationStatus::denied);
    clock.advance(0ms);
    EXPECT_THAT(answers, ElementsAre(true, false, false, false));
}

} // namespace

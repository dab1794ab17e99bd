#include "app/readers/CaptureTaps.h"
#include "platform/simulated/ManualScheduler.h"
#include "platform/simulated/SimulatedControls.h"

#include <future>
#include <gmock/gmock.h>
#include <thread>

using namespace tessivo;
using namespace std::chrono_literals;
using testing::ElementsAre;

namespace {

class SimulatedCaptureTests : public testing::Test {
protected:
    SimulatedCaptureTests() {
        controls.setAccess(MediaType::audio, AuthorizationStatus::authorized);
        controls.setAccess(MediaType::video, AuthorizationStatus::authorized);
    }
    std::shared_ptr<CaptureSession> session(MediaType type, const std::string& id) {
        std::shared_ptr<CaptureDelegate> tap = levels;
        if (type == MediaType::video) tap = frames;
        return mac->captureDevices().makeSession(type, id, tap);
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
    std::shared_ptr<LevelTap> levels = std::make_shared<LevelTap>();
    std::shared_ptr<FrameTap> frames = std::make_shared<FrameTap>();
};

TEST_F(SimulatedCaptureTests, speechArrivesAtItsLevelWhileASessionIsOpen) {
    EXPECT_FALSE(controls.speak(mic, -20)) << "nothing is open";
    const auto open = session(MediaType::audio, mic);
    open->startRunning();
    EXPECT_TRUE(controls.isOpen(mic));
    EXPECT_TRUE(controls.speak(mic, -20));
    EXPECT_NEAR(levels->take().value_or(0), -20, 0.01);
    EXPECT_TRUE(controls.feed(mic, {}, 1));
    open->stopRunning();
    EXPECT_FALSE(controls.isOpen(mic));
    EXPECT_FALSE(controls.speak(mic, 0)) << "a closed session delivers nothing";
    EXPECT_FALSE(levels->take());
}

TEST_F(SimulatedCaptureTests, aCameraSendsMovingFramesUntilItIsRemoved) {
    const auto open = session(MediaType::video, camera);
    open->startRunning();
    EXPECT_TRUE(controls.sendFrames(camera, 2));
    const QImage second = frames->newest();
    EXPECT_TRUE(controls.sendFrames(camera, 1));
    EXPECT_EQ(frames->frames(), 3);
    EXPECT_NE(frames->newest(), second);
    controls.keepSending(camera, true);
    EXPECT_TRUE(soon([&] { return frames->frames() >= 6; }));
    controls.removeDevice(MediaType::video, camera);
    controls.sendFrames(camera, 0); // whatever was under way has arrived
    const auto count = frames->frames();
    std::this_thread::sleep_for(100ms);
    EXPECT_EQ(frames->frames(), count);
    EXPECT_FALSE(session(MediaType::video, camera));
}

TEST_F(SimulatedCaptureTests, whateverIsOpenOrOpeningIsReleased) {
    controls.setOpening(camera, std::nullopt);
    const auto stuck = session(MediaType::video, camera);
    auto opening = std::async(std::launch::async, [&] { stuck->startRunning(); });
    EXPECT_EQ(opening.wait_for(30ms), std::future_status::timeout);
    EXPECT_TRUE(controls.isOpen(camera));
    stuck->cancelStart();
    opening.get();
    EXPECT_FALSE(controls.isOpen(camera));

    const auto late = session(MediaType::video, camera);
    opening = std::async(std::launch::async, [&] { late->startRunning(); });
    controls.setOpening(camera, 1ms);
    opening.get();
    EXPECT_TRUE(controls.sendFrames(camera, 1));

    controls.keepSpeaking(mic, -10);
    const auto speaking = session(MediaType::audio, mic);
    speaking->startRunning();
    controls.setOpening(camera, std::nullopt);
    const auto second = session(MediaType::video, camera);
    opening = std::async(std::launch::async, [&] { second->startRunning(); });
    std::optional<float> heard;
    EXPECT_TRUE(soon([&] { return heard || (heard = levels->take()); }));
    mac.reset();
    opening.get();
    levels->take();
    std::this_thread::sleep_for(50ms);
    EXPECT_FALSE(levels->take()) << "the platform's end is theirs";
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
}

TEST_F(SimulatedCaptureTests, accessIsAskedForOnceAndAnsweredLater) {
    auto& devices = mac->captureDevices();
    std::vector<bool> answers;
    const auto ask = [&](MediaType type, AuthorizationStatus status) {
        controls.setAccess(type, status);
        devices.requestAccess(type, [&](bool allowed) { answers.push_back(allowed); });
    };
    ask(MediaType::audio, AuthorizationStatus::notDetermined);
    EXPECT_TRUE(answers.empty()) << "never within the question";
    clock.advance(0ms);
    EXPECT_EQ(devices.authorizationStatus(MediaType::audio), AuthorizationStatus::authorized);
    for (const auto status : {AuthorizationStatus::denied, AuthorizationStatus::restricted})
        ask(MediaType::audio, status);
    clock.advance(0ms);
    EXPECT_THAT(answers, ElementsAre(true, false, false));

    controls.holdPrompts(true);
    ask(MediaType::video, AuthorizationStatus::notDetermined);
    clock.advance(1h);
    EXPECT_EQ(answers.size(), 3u);
    controls.setAccess(MediaType::audio, AuthorizationStatus::authorized);
    controls.setAccess(MediaType::video, AuthorizationStatus::denied);
    clock.advance(0ms);
    EXPECT_THAT(answers, ElementsAre(true, false, false, false));
}

} // namespace

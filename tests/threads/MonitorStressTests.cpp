#include "app/model/Background.h"
#include "app/readers/CameraMonitor.h"
#include "app/readers/MicMonitor.h"
#include "platform/simulated/ManualScheduler.h"

#include <atomic>
#include <gtest/gtest.h>
#include <thread>

namespace tessivo {
namespace {

using namespace std::chrono_literals;

/// Devices that send as fast as a thread can, from the moment they are open.
class FloodingDevices final : public CaptureDevices {
public:
    class Session final : public CaptureSession {
    public:
        Session(MediaType type, std::shared_ptr<CaptureDelegate> delegate)
            : m_type(type), m_delegate(std::move(delegate)) {}
        ~Session() override { stopRunning(); }

        void startRunning() override {
            m_flood.emplace([type = m_type, delegate = m_delegate](const StopToken& stop) {
                std::vector<float> samples(256, 0.1f);
                while (!stop.stopRequested()) {
                    samples[0] = -samples[0];
                    if (type == MediaType::audio) delegate->audio({.samples = samples, .channelCount = 2});
                    if (type == MediaType::video) delegate->video(QImage(16, 9, QImage::Format_RGB32));
                }
            });
        }
        void stopRunning() override { m_flood.reset(); }

    private:
        const MediaType m_type;
        const std::shared_ptr<CaptureDelegate> m_delegate;
        std::optional<Background::Stoppable> m_flood;
    };

    CaptureList devices(MediaType) const override { return {}; }
    AuthorizationStatus authorizationStatus(MediaType) const override {
        return AuthorizationStatus::authorized;
    }
    void requestAccess(MediaType, std::function<void(bool)> answer) override { answer(true); }
    std::shared_ptr<CaptureSession> makeSession(MediaType type, const std::string&,
                                                std::shared_ptr<CaptureDelegate> delegate) override {
        return std::make_shared<Session>(type, std::move(delegate));
    }
};

/// Waits until the capture queue has done all it was given.
void settle(CaptureDevices& devices) {
    std::atomic<bool> done = false;
    devices.captureQueue().async([&] {
        done = true;
        done.notify_all();
    });
    done.wait(false);
}

TEST(MonitorStress, aThousandCyclesOfBothMonitorsUnderAFlood) {
    FloodingDevices devices;
    ManualScheduler scheduler;
    MicMonitor microphone(devices, scheduler);
    CameraMonitor camera(devices, scheduler);
    int levels = 0, proofs = 0, pictures = 0;
    for (int cycle = 0; cycle < 1'000; ++cycle) {
        const std::string id = std::to_string(cycle % 3);
        ASSERT_TRUE(microphone.listen({id, ""}, [&](double level) {
            ++levels;
            EXPECT_NEAR(level, -20, 0.01);
        }));
        ASSERT_TRUE(camera.show({id, ""}, [&] { ++proofs; }));
        // Every other cycle is stopped while its devices may still be opening.
        if (cycle % 2 == 0) settle(devices);
        for (int i = 0; i < 5; ++i) {
            scheduler.advance(100ms);
            pictures += camera.picture().width() == 16;
        }
        if (cycle % 5 == 0) continue; // the next one takes over
        camera.stop();
        microphone.stop();
    }
    camera.stop();
    microphone.stop();
    settle(devices);
    EXPECT_EQ(scheduler.pending(), 0u);
    EXPECT_GT(levels, 0);
    EXPECT_GT(pictures, 0);
    EXPECT_LE(proofs, 1'000);
}

} // namespace
} // namespace tessivo

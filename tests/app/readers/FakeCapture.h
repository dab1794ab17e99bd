#pragma once

#include "platform/Capture.h"

#include <atomic>
#include <condition_variable>

namespace tessivo {

/// One session of FakeCapture. What the test delivers arrives from another thread, as in life.
class FakeSession final : public CaptureSession {
public:
    explicit FakeSession(std::shared_ptr<CaptureDelegate> delegate, bool hangs)
        : m_delegate(std::move(delegate)), m_hangs(hangs) {}

    void startRunning() override {
        std::unique_lock lock(m_mutex);
        mainThread = mainThread || std::this_thread::get_id() == m_maker;
        m_changed.wait(lock, [this] { return !m_hangs || m_cancelled; });
        started = !m_cancelled;
        m_changed.notify_all();
    }
    void stopRunning() override {
        const std::lock_guard lock(m_mutex);
        mainThread = mainThread || std::this_thread::get_id() == m_maker;
        stopped = true;
        m_changed.notify_all();
    }
    void cancelStart() override {
        const std::lock_guard lock(m_mutex);
        m_cancelled = true;
        m_changed.notify_all();
    }

    /// Waits a while for the capture queue to get there.
    bool waitFor(bool FakeSession::* what) {
        std::unique_lock lock(m_mutex);
        return m_changed.wait_for(lock, std::chrono::seconds(5), [&] { return this->*what; });
    }

    void deliver(std::vector<float> samples, int channels) {
        std::thread([&] { m_delegate->audio({.samples = samples, .channelCount = channels}); }).join();
    }
    /// A buffer of this average power.
    void deliver(double decibels) { deliver(std::vector<float>(480, float(std::pow(10, decibels / 20))), 1); }
    void deliverFrames(int count, QRgb color = qRgb(1, 2, 3)) {
        QImage frame(4, 2, QImage::Format_RGB32);
        frame.fill(color);
        std::thread([&] {
            for (int i = 0; i < count; ++i)
                m_delegate->video(frame);
        }).join();
    }

    void failToOpen(OpenFault fault) {
        std::thread([&] { m_delegate->openFailed(fault); }).join();
    }

    bool started = false;
    bool stopped = false;
    bool mainThread = false; ///< a call came on the thread that made the session

private:
    const std::thread::id m_maker = std::this_thread::get_id();
    const std::shared_ptr<CaptureDelegate> m_delegate;
    const bool m_hangs;
    bool m_cancelled = false;
    std::mutex m_mutex;
    std::condition_variable m_changed;
};

/// Capture devices that do as the test says.
class FakeCapture final : public CaptureDevices {
public:
    CaptureList devices(MediaType) const override { return {.devices = list}; }
    AuthorizationStatus authorizationStatus(MediaType) const override { return status; }
    void requestAccess(MediaType, std::function<void(bool)> answer) override { question = std::move(answer); }
    std::shared_ptr<CaptureSession> makeSession(MediaType, const std::string& id,
                                                std::shared_ptr<CaptureDelegate> delegate) override {
        if (id == "broken") return nullptr;
        sessions.push_back(std::make_shared<FakeSession>(std::move(delegate), id == "hangs"));
        return sessions.back();
    }
    FakeSession& last() { return *sessions.back(); }

    std::vector<CaptureDevice> list;
    AuthorizationStatus status = AuthorizationStatus::authorized;
    std::function<void(bool)> question;
    std::vector<std::shared_ptr<FakeSession>> sessions;
};

} // namespace tessivo

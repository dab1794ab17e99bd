#include "platform/simulated/SimulatedCapture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

namespace tessivo {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto bufferPeriod = 20ms;
constexpr auto framePeriod = 33ms;
constexpr std::size_t bufferFrames = 960; // 20 ms at 48 kHz
constexpr int channels = 2;
constexpr auto longestWait = 2s;

} // namespace

/// What a session, its thread and the controls share.
struct SimulatedCapture::Line {
    Line(MediaType type, std::string device, std::shared_ptr<CaptureDelegate> delegate,
         CaptureBehaviour behaviour)
        : type(type), device(std::move(device)), delegate(std::move(delegate)), behaviour(behaviour) {}

    const MediaType type;
    const std::string device;
    const std::shared_ptr<CaptureDelegate> delegate;
    std::mutex mutex;
    std::condition_variable changed;
    CaptureBehaviour behaviour;
    std::deque<std::function<void(CaptureDelegate&)>> actions;
    std::size_t posted = 0;
    std::size_t done = 0; ///< actions that have ended
    std::size_t number = 0;
    bool opening = false;
    bool open = false;
    bool cancelled = false; ///< a start that is under way or still to come ends at once
    bool closing = false;

    bool sends() const {
        return type == MediaType::audio ? behaviour.level.has_value() : behaviour.sendsFrames;
    }

    void sendOne(const CaptureBehaviour& now, std::size_t which) {
        if (type == MediaType::video) return delegate->video(testPicture(which));
        const auto samples = testSamples(*now.level, bufferFrames);
        delegate->audio({samples, channels});
    }

    /// Waits until the device has opened; false if it was closed instead.
    bool waitUntilOpen(std::unique_lock<std::mutex>& lock) {
        const auto begin = Clock::now();
        while (!closing && !cancelled) {
            if (!behaviour.opening) {
                changed.wait(lock);
            } else if (const auto due = begin + *behaviour.opening; due > Clock::now()) {
                changed.wait_until(lock, due);
            } else {
                return true;
            }
        }
        return false;
    }

    void run() {
        std::unique_lock lock(mutex);
        auto next = Clock::now();
        while (!closing) {
            if (!actions.empty()) {
                const auto action = std::move(actions.front());
                actions.pop_front();
                lock.unlock();
                action(*delegate);
                lock.lock();
                ++done;
                changed.notify_all();
            } else if (!sends()) {
                changed.wait(lock);
                next = Clock::now();
            } else if (next <= Clock::now()) {
                const auto now = behaviour;
                const auto which = number++;
                lock.unlock();
                sendOne(now, which);
                lock.lock();
                next += type == MediaType::audio ? bufferPeriod : framePeriod;
            } else {
                changed.wait_until(lock, next);
            }
        }
        open = false;
        changed.notify_all();
    }
};

class SimulatedCapture::Session final : public CaptureSession {
public:
    explicit Session(std::shared_ptr<Line> line) : m_line(std::move(line)) {}
    ~Session() override { stopRunning(); }

    void startRunning() override {
        std::unique_lock lock(m_line->mutex);
        if (m_line->opening || m_line->open || m_line->closing || m_line->cancelled) return;
        m_line->opening = true;
        const bool opened = m_line->waitUntilOpen(lock);
        const auto fault = m_line->behaviour.fault;
        m_line->open = opened && !fault;
        m_line->opening = false;
        m_line->changed.notify_all();
        if (opened && fault) {
            lock.unlock();
            return m_line->delegate->openFailed(*fault);
        }
        if (m_line->open) m_thread = std::thread([line = m_line] { line->run(); });
    }

    void stopRunning() override {
        std::unique_lock lock(m_line->mutex);
        m_line->closing = true;
        m_line->changed.notify_all();
        auto thread = std::move(m_thread);
        lock.unlock();
        if (!thread.joinable()) return;
        // A delegate that lets go of the last reference would else wait for its own end.
        if (thread.get_id() == std::this_thread::get_id())
            thread.detach();
        else
            thread.join();
    }

    void cancelStart() override {
        const std::lock_guard lock(m_line->mutex);
        m_line->cancelled = true;
        m_line->changed.notify_all();
    }

private:
    std::shared_ptr<Line> m_line;
    std::thread m_thread;
};

SimulatedCapture::~SimulatedCapture() {
    for (const auto& weak : m_lines)
        if (const auto line = weak.lock()) {
            std::unique_lock lock(line->mutex);
            line->closing = true;
            line->changed.notify_all();
            line->changed.wait(lock, [&] { return !line->open && !line->opening; });
        }
}

CaptureList SimulatedCapture::devices(MediaType type) const {
    if (const auto fault = m_mac.listFaults.find(type); fault != m_mac.listFaults.end())
        return {.fault = fault->second};
    CaptureList list;
    if (const auto& entries = m_mac.facts.captureEntries(type)) {
        list.devices.emplace();
        for (const auto& entry : *entries)
            list.devices->push_back({entry.uniqueID, entry.localizedName.value_or("")});
    }
    return list;
}

AuthorizationStatus SimulatedCapture::authorizationStatus(MediaType type) const {
    auto access = m_mac.facts.access.value_or(MachineFile::Access());
    return access.of(type).value_or(AuthorizationStatus::notDetermined);
}

void SimulatedCapture::requestAccess(MediaType type, std::function<void(bool)> answer) {
    auto status = authorizationStatus(type);
    if (status == AuthorizationStatus::notDetermined) {
        if (m_promptsHeld) {
            m_prompts.push_back({type, std::move(answer)});
            return;
        }
        status = AuthorizationStatus::authorized;
        setAccess(type, status);
    }
    answerSoon(std::move(answer), status == AuthorizationStatus::authorized);
}

void SimulatedCapture::answerSoon(std::function<void(bool)> answer, bool allowed) {
    m_answers.push_back(m_scheduler.after(0ms, [answer = std::move(answer), allowed] { answer(allowed); }));
}

std::shared_ptr<CaptureSession> SimulatedCapture::makeSession(MediaType type, const std::string& deviceID,
                                                              std::shared_ptr<CaptureDelegate> delegate) {
    if (authorizationStatus(type) != AuthorizationStatus::authorized) return nullptr;
    if (!devices(type).devices) return nullptr;
    const auto& entries = *m_mac.facts.captureEntries(type);
    const auto entry = std::ranges::find(entries, deviceID, &MachineFile::CaptureEntry::uniqueID);
    if (entry == entries.end() || !entry->opens.value_or(true)) return nullptr;
    auto line = std::make_shared<Line>(type, deviceID, std::move(delegate), m_behaviours[deviceID]);
    std::erase_if(m_lines, [](const auto& known) { return known.expired(); });
    m_lines.push_back(line);
    return std::make_shared<Session>(std::move(line));
}

void SimulatedCapture::setAccess(MediaType type, AuthorizationStatus status) {
    if (!m_mac.facts.access) m_mac.facts.access.emplace();
    m_mac.facts.access->of(type) = status;
    if (status == AuthorizationStatus::notDetermined) return;
    for (auto& prompt : std::exchange(m_prompts, {})) {
        if (prompt.type == type)
            answerSoon(std::move(prompt.answer), status == AuthorizationStatus::authorized);
        else
            m_prompts.push_back(std::move(prompt));
    }
}

void SimulatedCapture::setBehaviour(const std::string& deviceID, const CaptureBehaviour& behaviour) {
    m_behaviours[deviceID] = behaviour;
    for (const auto& line : lines(deviceID)) {
        const std::lock_guard lock(line->mutex);
        line->behaviour = behaviour;
        line->changed.notify_all();
    }
}

bool SimulatedCapture::deliver(const std::string& deviceID, std::function<void(CaptureDelegate&)> action) {
    const auto candidates = lines(deviceID);
    if (candidates.empty()) return false;
    // A device has one session at a time; an older one may still be closing.
    const auto& line = candidates.back();
    const auto until = Clock::now() + longestWait;
    std::unique_lock lock(line->mutex);
    line->changed.wait_until(lock, until, [&] { return line->open || line->closing || line->cancelled; });
    if (!line->open || line->closing) return false;
    line->actions.push_back(std::move(action));
    const auto due = ++line->posted;
    line->changed.notify_all();
    line->changed.wait(lock, [&] { return line->done >= due || !line->open; });
    return line->done >= due;
}

bool SimulatedCapture::isOpen(const std::string& deviceID) const {
    return std::ranges::any_of(lines(deviceID), [](const auto& line) {
        const std::lock_guard lock(line->mutex);
        return line->open || line->opening;
    });
}

std::vector<std::shared_ptr<SimulatedCapture::Line>>
SimulatedCapture::lines(const std::string& deviceID) const {
    std::vector<std::shared_ptr<Line>> found;
    for (const auto& weak : m_lines)
        if (auto line = weak.lock(); line && line->device == deviceID) found.push_back(std::move(line));
    return found;
}

QImage testPicture(std::size_t number) {
    constexpr int width = 640, height = 360, step = 4, square = 80;
    constexpr std::array bars = {qRgb(235, 235, 235), qRgb(235, 235, 16), qRgb(16, 235, 235),
                                 qRgb(16, 235, 16),   qRgb(235, 16, 235), qRgb(235, 16, 16),
                                 qRgb(16, 16, 235),   qRgb(16, 16, 16)};
    QImage picture(width, height, QImage::Format_RGB32);
    const int left = int(number * step % (width - square));
    for (int y = 0; y < height; ++y) {
        auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < width; ++x)
            line[x] = bars[std::size_t(x) * bars.size() / width];
        if (y >= (height - square) / 2 && y < (height + square) / 2)
            std::fill_n(line + left, square, qRgb(255, 140, 0));
    }
    return picture;
}

std::vector<float> testSamples(double level, std::size_t frames) {
    const auto amplitude = float(std::pow(10.0, level / 20.0));
    std::vector<float> samples(frames * channels);
    constexpr std::size_t halfWave = 48; // 500 Hz at 48 kHz
    for (std::size_t frame = 0; frame < frames; ++frame)
        std::fill_n(samples.begin() + std::ptrdiff_t(frame * channels), channels,
                    frame / halfWave % 2 ? -amplitude : amplitude);
    return samples;
}

} // namespace tessivo

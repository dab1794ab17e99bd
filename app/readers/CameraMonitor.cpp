#include "app/readers/CameraMonitor.h"

#include "app/readers/CaptureAccess.h"

#include <utility>

namespace tessivo {

CameraMonitor::CameraMonitor(CaptureDevices& devices, Scheduler& scheduler, QObject* parent)
    : QObject(parent), m_devices(devices), m_scheduler(scheduler) {}

CameraMonitor::~CameraMonitor() {
    closeSession(m_devices, std::move(m_box));
}

QImage CameraMonitor::picture() const {
    return m_tap ? m_tap->newest() : QImage();
}

bool CameraMonitor::show(const CaptureDevice& device, std::function<void()> onFrames) {
    stop();
    auto tap = std::make_shared<FrameTap>();
    auto session = openSession(m_devices, MediaType::video, device.uniqueID, tap);
    if (!session) return false;
    m_box = std::move(session);
    m_tap = std::move(tap);
    m_onFrames = std::move(onFrames);
    m_poll = m_scheduler.after(interval, [this] { round(); });
    setShowing(device.uniqueID);
    return true;
}

void CameraMonitor::stop() {
    m_poll.reset();
    closeSession(m_devices, std::move(m_box));
    m_tap.reset();
    m_onFrames = nullptr;
    setShowing(std::nullopt);
    setFramesSeen(false);
}

void CameraMonitor::round() {
    if (m_tap->frames() < framesForProof) {
        m_poll = m_scheduler.after(interval, [this] { round(); });
        return;
    }
    m_poll.reset();
    // Whoever hears of the frames may stop the monitor, or let go of it.
    const auto onFrames = std::exchange(m_onFrames, nullptr);
    setFramesSeen(true);
    if (onFrames) onFrames();
}

void CameraMonitor::setShowing(std::optional<std::string> id) {
    if (m_showing == id) return;
    m_showing = std::move(id);
    Q_EMIT showingChanged();
}

void CameraMonitor::setFramesSeen(bool seen) {
    if (m_framesSeen == seen) return;
    m_framesSeen = seen;
    Q_EMIT framesSeenChanged();
}

} // namespace tessivo

#include "app/readers/CameraMonitor.h"

#include "app/readers/CaptureAccess.h"

#include <QPointer>
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

bool CameraMonitor::show(const CaptureDevice& device, std::function<void()> onFrames,
                         std::function<void(OpenFault)> onFault) {
    stop();
    auto tap = std::make_shared<FrameTap>();
    auto session = openSession(m_devices, MediaType::video, device.uniqueID, tap);
    if (!session) return false;
    m_box = std::move(session);
    m_tap = std::move(tap);
    m_onFrames = std::move(onFrames);
    m_onFault = std::move(onFault);
    m_poll = m_scheduler.after(interval, [this] { round(); });
    setShowing(device.uniqueID);
    return true;
}

void CameraMonitor::stop() {
    m_poll.reset();
    closeSession(m_devices, std::move(m_box));
    m_tap.reset();
    m_onFrames = nullptr;
    m_onFault = nullptr;
    setShowing(std::nullopt);
    setFramesSeen(false);
}

void CameraMonitor::round() {
    // Whoever hears of the frames or a fault may stop the monitor, or let go of it.
    const QPointer<CameraMonitor> alive(this);
    if (const auto fault = m_tap->fault()) {
        const auto onFault = m_onFault;
        stop();
        if (alive && onFault) onFault(*fault);
        return;
    }
    if (m_tap->frames() < framesForProof) {
        m_poll = m_scheduler.after(interval, [this] { round(); });
        return;
    }
    m_poll.reset();
    const auto onFrames = std::exchange(m_onFrames, nullptr);
    setFramesSeen(true);
    if (alive && onFrames) onFrames();
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

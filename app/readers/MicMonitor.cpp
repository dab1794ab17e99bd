#include "app/readers/MicMonitor.h"

#include "app/readers/CaptureAccess.h"
#include "kit/hardware/LevelMeter.h"

#include <QPointer>
#include <utility>

namespace tessivo {

MicMonitor::MicMonitor(CaptureDevices& devices, Scheduler& scheduler, QObject* parent)
    : QObject(parent), m_devices(devices), m_scheduler(scheduler), m_level(LevelMeter::silence) {}

MicMonitor::~MicMonitor() {
    closeSession(m_devices, std::move(m_box));
}

bool MicMonitor::listen(const CaptureDevice& device, std::function<void(double)> onPeak,
                        std::function<void(OpenFault)> onFault) {
    stop();
    auto tap = std::make_shared<LevelTap>();
    auto session = openSession(m_devices, MediaType::audio, device.uniqueID, tap);
    if (!session) return false;
    m_box = std::move(session);
    m_tap = std::move(tap);
    m_onPeak = std::move(onPeak);
    m_onFault = std::move(onFault);
    m_poll = m_scheduler.after(interval, [this] { round(); });
    setListening(device.uniqueID);
    return true;
}

void MicMonitor::stop() {
    m_poll.reset();
    closeSession(m_devices, std::move(m_box));
    m_tap.reset();
    m_onPeak = nullptr;
    m_onFault = nullptr;
    setListening(std::nullopt);
    setLevel(LevelMeter::silence);
}

void MicMonitor::round() {
    m_poll = m_scheduler.after(interval, [this] { round(); });
    // Whoever hears of a level or a fault may stop the monitor, or let go of it.
    const QPointer<MicMonitor> alive(this);
    if (const auto fault = m_tap->fault()) {
        const auto onFault = m_onFault;
        stop();
        if (alive && onFault) onFault(*fault);
        return;
    }
    const auto peak = m_tap->take();
    if (!peak) return;
    const auto onPeak = m_onPeak;
    setLevel(*peak);
    if (alive && m_onPeak && onPeak) onPeak(*peak);
}

void MicMonitor::setListening(std::optional<std::string> id) {
    if (m_listening == id) return;
    m_listening = std::move(id);
    Q_EMIT listeningChanged();
}

void MicMonitor::setLevel(double level) {
    if (m_level == level) return;
    m_level = level;
    Q_EMIT levelChanged();
}

} // namespace tessivo

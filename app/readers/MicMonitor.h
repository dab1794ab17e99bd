#pragma once

#include "app/readers/CaptureTaps.h"
#include "platform/Scheduler.h"

#include <QObject>

namespace tessivo {

/// Listens to one microphone at a time and shows the loudest level of each tenth of a second. Main thread;
/// the device opens and closes on the capture queue, so that nothing here waits for it.
class MicMonitor final : public QObject {
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds interval{100};

    MicMonitor(CaptureDevices& devices, Scheduler& scheduler, QObject* parent = nullptr);
    ~MicMonitor() override;

    /// The id of the open device.
    const std::optional<std::string>& listening() const { return m_listening; }
    /// In dB; -160 at rest.
    double level() const { return m_level; }

    /// Stops, then opens the device; `onPeak` gets each level that is shown. False if no session could be
    /// set up; nothing is open then. A device that turns out not to open is stopped, and `onFault` called.
    bool listen(const CaptureDevice& device, std::function<void(double)> onPeak,
                std::function<void(OpenFault)> onFault = {});
    void stop();

Q_SIGNALS:
    void listeningChanged();
    void levelChanged();

private:
    void round();
    void setListening(std::optional<std::string> id);
    void setLevel(double level);

    CaptureDevices& m_devices;
    Scheduler& m_scheduler;
    std::optional<std::string> m_listening;
    double m_level;
    std::shared_ptr<CaptureSession> m_box;
    std::shared_ptr<LevelTap> m_tap;
    std::function<void(double)> m_onPeak;
    std::function<void(OpenFault)> m_onFault;
    std::unique_ptr<Scheduled> m_poll;
};

} // namespace tessivo

#pragma once

#include "app/readers/CaptureTaps.h"
#include "platform/Scheduler.h"

#include <QObject>

namespace tessivo {

/// Shows one camera at a time and proves that its stream is live. Main thread; the device opens and
/// closes on the capture queue, so that nothing here waits for it.
class CameraMonitor final : public QObject {
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds interval{250};
    static constexpr std::int64_t framesForProof = 4;

    CameraMonitor(CaptureDevices& devices, Scheduler& scheduler, QObject* parent = nullptr);
    ~CameraMonitor() override;

    /// The id of the open device.
    const std::optional<std::string>& showing() const { return m_showing; }
    bool framesSeen() const { return m_framesSeen; }
    /// The newest frame of the open device, for a preview; null before the first and while none is open.
    QImage picture() const;

    /// Stops, then opens the device; `onFrames` is called once, when enough frames have come. False if no
    /// session could be set up; nothing is open then. A device that turns out not to open is stopped, and
    /// `onFault` called.
    bool show(const CaptureDevice& device, std::function<void()> onFrames,
              std::function<void(OpenFault)> onFault = {});
    void stop();

Q_SIGNALS:
    void showingChanged();
    void framesSeenChanged();

private:
    void round();
    void setShowing(std::optional<std::string> id);
    void setFramesSeen(bool seen);

    CaptureDevices& m_devices;
    Scheduler& m_scheduler;
    std::optional<std::string> m_showing;
    bool m_framesSeen = false;
    std::shared_ptr<CaptureSession> m_box;
    std::shared_ptr<FrameTap> m_tap;
    std::function<void()> m_onFrames;
    std::function<void(OpenFault)> m_onFault;
    std::unique_ptr<Scheduled> m_poll;
};

} // namespace tessivo

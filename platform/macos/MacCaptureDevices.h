#pragma once

#include "platform/Capture.h"
#include "platform/qt/QtCameras.h"
#include "platform/qt/QtMicrophones.h"

namespace tessivo {

/// Microphones and cameras by Qt, each opened only once the person has allowed it: without that the system
/// gives silence and no pictures. Qt keeps the list of cameras on the main thread here, and makes it when it
/// is first asked for.
class MacCaptureDevices final : public CaptureDevices {
public:
    MacCaptureDevices();

    CaptureList devices(MediaType type) const override;
    AuthorizationStatus authorizationStatus(MediaType type) const override;
    void requestAccess(MediaType type, std::function<void(bool)> answer) override;
    std::shared_ptr<CaptureSession> makeSession(MediaType type, const std::string& deviceID,
                                                std::shared_ptr<CaptureDelegate> delegate) override;

    /// What the system's number means; one that isn't known allows nothing.
    static AuthorizationStatus status(std::int64_t number);

private:
    QtMicrophones m_microphones;
    std::unique_ptr<QtCameras> m_cameras;
    std::shared_ptr<QObject> m_mainThread; ///< where answers are given; kept by questions under way
};

} // namespace tessivo

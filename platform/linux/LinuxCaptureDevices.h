#pragma once

#include "platform/Capture.h"
#include "platform/linux/PulseServer.h"
#include "platform/linux/QtCameras.h"

#include <QObject>
#include <chrono>

namespace tessivo {

/// Microphones from the sound server, cameras from Qt. Access is not determined until a kind has been
/// listed once; `requestAccess` lists it away from the main thread and then answers.
class LinuxCaptureDevices final : public CaptureDevices {
public:
    explicit LinuxCaptureDevices(std::shared_ptr<PulseServer> server,
                                 std::filesystem::path deviceFolder = "/dev");

    std::vector<CaptureDevice> devices(MediaType type) const override;
    AuthorizationStatus authorizationStatus(MediaType type) const override;
    void requestAccess(MediaType type, std::function<void(bool)> answer) override;
    std::shared_ptr<CaptureSession> makeSession(MediaType type, const std::string& deviceID,
                                                std::shared_ptr<CaptureDelegate> delegate) override;

    /// Lists the cameras and waits for it, for a support tool that has no page to keep usable. False when
    /// the time is over.
    bool waitForCameras(std::chrono::milliseconds time);

private:
    std::shared_ptr<PulseServer> m_server;
    QtCameras m_cameras;
    std::shared_ptr<QObject> m_mainThread; ///< where answers are given; kept by questions under way
    std::shared_ptr<int> m_alive = std::make_shared<int>(); ///< looked at on the main thread alone
};

} // namespace tessivo

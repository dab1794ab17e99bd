#pragma once

#include "platform/Capture.h"
#include "platform/linux/CameraFiles.h"
#include "platform/linux/PulseServer.h"
#include "platform/qt/QtCameras.h"

#include <chrono>
#include <set>

namespace tessivo {

/// Microphones from the sound server, cameras from Qt. Access is not determined until a kind has been
/// listed once; `requestAccess` lists it away from the main thread and then answers, or answers when that
/// takes too long: there is no list then.
class LinuxCaptureDevices final : public CaptureDevices {
public:
    /// How long a sound server or a camera's driver may take to answer.
    static constexpr std::chrono::milliseconds patience{3000};

    explicit LinuxCaptureDevices(std::shared_ptr<PulseServer> server,
                                 std::filesystem::path deviceFolder = "/dev", SystemTree tree = SystemTree());

    CaptureList devices(MediaType type) const override;
    AuthorizationStatus authorizationStatus(MediaType type) const override;
    void requestAccess(MediaType type, std::function<void(bool)> answer) override;
    std::shared_ptr<CaptureSession> makeSession(MediaType type, const std::string& deviceID,
                                                std::shared_ptr<CaptureDelegate> delegate) override;

    /// Lists the cameras and waits for it, for a support tool that has no page to keep usable. False when
    /// the time is over.
    bool waitForCameras(std::chrono::milliseconds time);

private:
    CaptureList microphones() const;
    CaptureList cameras() const;
    /// Nothing until Qt has listed them, unless there is no camera's file at all.
    std::optional<std::vector<CaptureDevice>> listedCameras() const;

    std::shared_ptr<PulseServer> m_server;
    SystemTree m_tree;
    CameraFiles m_cameraFiles;
    QtCameras m_cameras;
    std::set<MediaType> m_silent;          ///< kinds that were waited for in vain
    std::shared_ptr<QObject> m_mainThread; ///< where answers are given; kept by questions under way
    std::shared_ptr<int> m_alive = std::make_shared<int>(); ///< looked at on the main thread alone
};

} // namespace tessivo

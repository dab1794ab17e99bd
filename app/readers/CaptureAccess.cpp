#include "app/readers/CaptureAccess.h"

#include <QPointer>
#include <set>

namespace tessivo {
namespace {

CaptureList list(const CaptureDevices& devices, MediaType type) {
    CaptureList listed = devices.devices(type);
    std::set<std::string> ids;
    if (listed.devices)
        std::erase_if(*listed.devices,
                      [&](const CaptureDevice& device) { return !ids.insert(device.uniqueID).second; });
    return listed;
}

std::string privacySettings(MediaType type) {
    return std::string("x-apple.systempreferences:com.apple.preference.security?") +
           (type == MediaType::video ? "Privacy_Camera" : "Privacy_Microphone");
}

} // namespace

void requestCaptureAccess(CaptureDevices& devices, MediaType type, QObject* context,
                          std::function<void(bool)> answer) {
    const AuthorizationStatus status = devices.authorizationStatus(type);
    if (status != AuthorizationStatus::notDetermined)
        return answer(status == AuthorizationStatus::authorized);
    devices.requestAccess(type, [guard = QPointer(context), answer = std::move(answer)](bool allowed) {
        if (guard) answer(allowed);
    });
}

void openPrivacySettings(Desktop& desktop, MediaType type) {
    desktop.openURL(privacySettings(type));
}

bool canOpenPrivacySettings(const Desktop& desktop, MediaType type) {
    return desktop.canOpenURL(privacySettings(type));
}

CaptureList listCameras(const CaptureDevices& devices) {
    return list(devices, MediaType::video);
}

CaptureList listMicrophones(const CaptureDevices& devices) {
    return list(devices, MediaType::audio);
}

std::shared_ptr<CaptureSession> openSession(CaptureDevices& devices, MediaType type,
                                            const std::string& deviceID,
                                            std::shared_ptr<CaptureDelegate> delegate) {
    auto session = devices.makeSession(type, deviceID, std::move(delegate));
    if (session) devices.captureQueue().async([session] { session->startRunning(); });
    return session;
}

void closeSession(CaptureDevices& devices, std::shared_ptr<CaptureSession> session) {
    if (!session) return;
    // The queue may be busy with this very start; what waits behind it must get its turn.
    session->cancelStart();
    devices.captureQueue().async([session = std::move(session)] { session->stopRunning(); });
}

} // namespace tessivo

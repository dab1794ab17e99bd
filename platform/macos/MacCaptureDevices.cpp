#include "platform/macos/MacCaptureDevices.h"

#include "platform/macos/MacPrivacy.h"

namespace tessivo {

MacCaptureDevices::MacCaptureDevices()
    : m_cameras(std::make_unique<QtCameras>(QtCameras::ListedOn::mainThread)),
      m_mainThread(new QObject, [](QObject* object) { object->deleteLater(); }) {}

CaptureList MacCaptureDevices::devices(MediaType type) const {
    if (type == MediaType::audio) return {.devices = m_microphones.devices()};
    if (!m_cameras->devices()) m_cameras->list([] {});
    return {.devices = m_cameras->devices()};
}

AuthorizationStatus MacCaptureDevices::status(std::int64_t number) {
    constexpr AuthorizationStatus known[] = {AuthorizationStatus::notDetermined,
                                             AuthorizationStatus::restricted, AuthorizationStatus::denied,
                                             AuthorizationStatus::authorized};
    return number >= 0 && number < std::ssize(known) ? known[number] : AuthorizationStatus::denied;
}

AuthorizationStatus MacCaptureDevices::authorizationStatus(MediaType type) const {
    return status(MacPrivacy::authorizationStatus(type));
}

void MacCaptureDevices::requestAccess(MediaType type, std::function<void(bool)> answer) {
    MacPrivacy::requestAccess(type, [main = m_mainThread, answer = std::move(answer)](bool granted) {
        QMetaObject::invokeMethod(main.get(), [answer, granted] { answer(granted); }, Qt::QueuedConnection);
    });
}

std::shared_ptr<CaptureSession> MacCaptureDevices::makeSession(MediaType type, const std::string& deviceID,
                                                               std::shared_ptr<CaptureDelegate> delegate) {
    if (authorizationStatus(type) != AuthorizationStatus::authorized) return nullptr;
    return type == MediaType::video ? m_cameras->makeSession(deviceID, std::move(delegate))
                                    : m_microphones.makeSession(deviceID, std::move(delegate));
}

} // namespace tessivo

#include "platform/macos/MacCaptureDevices.h"

#include "platform/macos/MacPrivacy.h"
#include "platform/qt/QtMicrophone.h"

#include <QMediaDevices>

namespace tessivo {

MacCaptureDevices::MacCaptureDevices()
    : m_cameras(std::make_unique<QtCameras>(QtCameras::ListedOn::mainThread)),
      m_microphoneThread(std::make_shared<QtThread>("Tessivo.microphone")),
      m_mainThread(new QObject, [](QObject* object) { object->deleteLater(); }) {}

MacCaptureDevices::~MacCaptureDevices() {
    m_microphoneThread->end();
}

CaptureList MacCaptureDevices::devices(MediaType type) const {
    if (type == MediaType::video) {
        if (!m_cameras->devices()) m_cameras->list([] {});
        return {.devices = m_cameras->devices()};
    }
    std::vector<CaptureDevice> devices;
    for (const QAudioDevice& input : QMediaDevices::audioInputs())
        devices.push_back({input.id().toStdString(), input.description().toStdString()});
    return {.devices = std::move(devices)};
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
    if (type == MediaType::video) return m_cameras->makeSession(deviceID, std::move(delegate));
    for (const QAudioDevice& input : QMediaDevices::audioInputs())
        if (input.id().toStdString() == deviceID)
            return std::make_shared<QtMicrophone>(m_microphoneThread, input, std::move(delegate));
    return nullptr;
}

} // namespace tessivo

#include "platform/linux/LinuxCaptureDevices.h"

#include "platform/linux/PulseRecording.h"

#include <future>

namespace tessivo {

LinuxCaptureDevices::LinuxCaptureDevices(std::shared_ptr<PulseServer> server,
                                         std::filesystem::path deviceFolder)
    : m_server(std::move(server)),
      m_cameras(std::move(deviceFolder)),
      m_mainThread(new QObject, [](QObject* object) { object->deleteLater(); }) {}

std::vector<CaptureDevice> LinuxCaptureDevices::devices(MediaType type) const {
    if (type == MediaType::video) return m_cameras.devices().value_or(std::vector<CaptureDevice>());
    std::vector<CaptureDevice> microphones;
    for (const PulseSource& source : m_server->snapshot()->sources)
        if (source.isMicrophone())
            microphones.push_back({source.name, source.description.value_or(source.name)});
    return microphones;
}

AuthorizationStatus LinuxCaptureDevices::authorizationStatus(MediaType type) const {
    if (type == MediaType::video) {
        const AuthorizationStatus status = m_cameras.authorizationStatus();
        const bool unknown = status == AuthorizationStatus::authorized && !m_cameras.devices();
        return unknown ? AuthorizationStatus::notDetermined : status;
    }
    switch (m_server->snapshot()->server) {
    case PulseSnapshot::Server::connecting:
        return AuthorizationStatus::notDetermined;
    case PulseSnapshot::Server::refused:
        return AuthorizationStatus::denied;
    // Without a server there is nothing to be let into, and no microphone.
    case PulseSnapshot::Server::absent:
    case PulseSnapshot::Server::connected:
        break;
    }
    return AuthorizationStatus::authorized;
}

void LinuxCaptureDevices::requestAccess(MediaType type, std::function<void(bool)> answer) {
    auto listed = [this, type, answer = std::move(answer), main = m_mainThread,
                   alive = std::weak_ptr(m_alive)] {
        QMetaObject::invokeMethod(
            main.get(),
            [this, type, answer, alive] {
                if (!alive.expired()) answer(authorizationStatus(type) == AuthorizationStatus::authorized);
            },
            Qt::QueuedConnection);
    };
    if (type == MediaType::video)
        m_cameras.list(std::move(listed));
    else
        m_server->whenSettled(std::move(listed));
}

bool LinuxCaptureDevices::waitForCameras(std::chrono::milliseconds time) {
    if (m_cameras.devices()) return true;
    const auto listed = std::make_shared<std::promise<void>>();
    m_cameras.list([listed] { listed->set_value(); });
    return listed->get_future().wait_for(time) == std::future_status::ready;
}

std::shared_ptr<CaptureSession> LinuxCaptureDevices::makeSession(MediaType type, const std::string& deviceID,
                                                                 std::shared_ptr<CaptureDelegate> delegate) {
    if (type == MediaType::video) return m_cameras.makeSession(deviceID, std::move(delegate));
    const auto devices = m_server->snapshot();
    const PulseSource* source = devices->sourceNamed(deviceID);
    if (!source || !source->isMicrophone()) return nullptr;
    return std::make_shared<PulseMicrophoneSession>(m_server, deviceID, std::move(delegate));
}

} // namespace tessivo

#include "platform/linux/LinuxCaptureDevices.h"

#include "platform/linux/CaptureHardware.h"
#include "platform/linux/PulseRecording.h"

#include <QTimer>
#include <algorithm>
#include <future>
#include <utility>

namespace tessivo {

LinuxCaptureDevices::LinuxCaptureDevices(std::shared_ptr<PulseServer> server,
                                         std::filesystem::path deviceFolder, SystemTree tree)
    : m_server(std::move(server)),
      m_tree(std::move(tree)),
      m_cameraFiles(std::move(deviceFolder), m_tree),
      m_cameras(QtCameras::ListedOn::camerasThread, &CameraFiles::fault),
      m_mainThread(new QObject, [](QObject* object) { object->deleteLater(); }) {}

CaptureList LinuxCaptureDevices::devices(MediaType type) const {
    return type == MediaType::video ? cameras() : microphones();
}

CaptureList LinuxCaptureDevices::microphones() const {
    const auto snapshot = m_server->snapshot();
    if (snapshot->server != PulseSnapshot::Server::connected) {
        const bool noDriver =
            !CaptureHardware::hasSoundCard(m_tree) && CaptureHardware::hasSoundWithoutDriver(m_tree);
        return {.fault = noDriver ? CaptureList::Fault::noDriver : CaptureList::Fault::noService};
    }
    std::vector<CaptureDevice> devices;
    for (const PulseSource& source : snapshot->sources)
        if (source.isMicrophone()) devices.push_back({source.name, source.description.value_or(source.name)});
    if (devices.empty() && CaptureHardware::hasSoundWithoutDriver(m_tree))
        return {.fault = CaptureList::Fault::noDriver};
    // A card whose inputs are switched off, or that nobody handed to the server.
    const auto isInput = [](const PulseSource& source) { return source.isHardware && !source.monitorsSink; };
    if (std::ranges::none_of(snapshot->sources, isInput) && CaptureHardware::hasOwnMicrophone(m_tree))
        return {.fault = CaptureList::Fault::noService};
    return {.devices = std::move(devices)};
}

std::optional<std::vector<CaptureDevice>> LinuxCaptureDevices::listedCameras() const {
    auto devices = m_cameras.devices();
    if (!devices && m_cameraFiles.list().empty()) devices.emplace();
    return devices;
}

CaptureList LinuxCaptureDevices::cameras() const {
    auto devices = listedCameras();
    if (!devices) return {.fault = CaptureList::Fault::noService};
    if (devices->empty() && CaptureHardware::hasCameraWithoutDriver(m_tree))
        return {.fault = CaptureList::Fault::noDriver};
    return {.devices = std::move(devices)};
}

AuthorizationStatus LinuxCaptureDevices::authorizationStatus(MediaType type) const {
    AuthorizationStatus status = AuthorizationStatus::authorized;
    bool known = true;
    if (type == MediaType::video) {
        status = m_cameraFiles.authorizationStatus();
        known = status != AuthorizationStatus::authorized || listedCameras();
    } else {
        const auto server = m_server->snapshot()->server;
        if (server == PulseSnapshot::Server::refused) status = AuthorizationStatus::denied;
        known = server != PulseSnapshot::Server::connecting;
    }
    return known || m_silent.contains(type) ? status : AuthorizationStatus::notDetermined;
}

void LinuxCaptureDevices::requestAccess(MediaType type, std::function<void(bool)> answer) {
    // On the main thread: once, when there is a list or patience ends.
    const auto question = std::make_shared<std::function<void(bool)>>(std::move(answer));
    const auto settle = [this, type, question, alive = std::weak_ptr(m_alive)](bool silent) {
        if (alive.expired() || !*question) return;
        if (silent)
            m_silent.insert(type);
        else
            m_silent.erase(type);
        std::exchange(*question, nullptr)(authorizationStatus(type) == AuthorizationStatus::authorized);
    };
    QTimer::singleShot(patience, m_mainThread.get(), [settle] { settle(true); });
    auto listed = [settle, main = m_mainThread] {
        QMetaObject::invokeMethod(main.get(), [settle] { settle(false); }, Qt::QueuedConnection);
    };
    if (type == MediaType::video)
        m_cameras.list(std::move(listed));
    else
        m_server->whenSettled(std::move(listed));
}

bool LinuxCaptureDevices::waitForCameras(std::chrono::milliseconds time) {
    if (listedCameras()) return true;
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

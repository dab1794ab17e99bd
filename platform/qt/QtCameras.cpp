#include "platform/qt/QtCameras.h"

#include "platform/qt/QtCaptureStream.h"
#include "platform/qt/VideoFrames.h"

#include <QCamera>
#include <QMediaCaptureSession>
#include <QMediaDevices>
#include <QVideoSink>

namespace tessivo {
namespace {

/// What keeps one camera open. Lives and dies on the cameras' thread.
struct OpenCamera final : QObject {
    OpenCamera(const QCameraDevice& device, QObject* owner) : QObject(owner), camera(device) {
        session.setCamera(&camera);
        session.setVideoSink(&sink);
    }

    QCamera camera;
    QVideoSink sink;
    QMediaCaptureSession session;
};

class CameraStream final : public QtCaptureStream {
public:
    CameraStream(QCameraDevice device, QtCameras::AskFault askFault,
                 std::shared_ptr<CaptureDelegate> delegate)
        : QtCaptureStream(std::move(delegate)),
          m_device(std::move(device)),
          m_askFault(std::move(askFault)) {}

private:
    QObject* open(QObject& owner) override {
        if (const auto known = fault()) {
            fail(*known);
            return nullptr;
        }
        auto* opened = new OpenCamera(m_device, &owner);
        const auto self = std::static_pointer_cast<CameraStream>(shared_from_this());
        QObject::connect(
            &opened->sink, &QVideoSink::videoFrameChanged, opened,
            [self](const QVideoFrame& frame) { self->pass(frame); }, Qt::DirectConnection);
        // In its own turn: the camera is still in the midst of its call. Let go first: it would be what keeps
        // itself busy.
        const auto failed = [weak = std::weak_ptr(self)](QCamera::Error error) {
            const auto stream = weak.lock();
            if (!stream || !stream->isOpen() || error == QCamera::NoError) return;
            stream->close();
            stream->fail(stream->fault().value_or(OpenFault::broken));
        };
        QObject::connect(&opened->camera, &QCamera::errorOccurred, &owner, failed, Qt::QueuedConnection);
        opened->camera.start();
        return opened;
    }
    std::optional<OpenFault> fault() const {
        return m_askFault ? m_askFault(m_device.id().toStdString()) : std::nullopt;
    }
    /// On whatever thread the pictures come.
    void pass(const QVideoFrame& frame) {
        if (const QImage picture = cameraImage(frame); !picture.isNull())
            deliver([&](CaptureDelegate& delegate) { delegate.video(picture); });
    }

    const QCameraDevice m_device;
    const QtCameras::AskFault m_askFault;
};

} // namespace

/// Shared with the thread that lists, which may be left behind.
class QtCameras::List final {
public:
    void read() {
        auto devices = QMediaDevices::videoInputs();
        const std::lock_guard lock(m_mutex);
        m_devices = std::move(devices);
    }
    std::optional<QList<QCameraDevice>> devices() const {
        const std::lock_guard lock(m_mutex);
        return m_devices;
    }

private:
    mutable std::mutex m_mutex;
    std::optional<QList<QCameraDevice>> m_devices;
};

QtCameras::QtCameras(ListedOn listedOn, AskFault askFault)
    : m_listedOn(listedOn),
      m_askFault(std::move(askFault)),
      m_list(std::make_shared<List>()),
      m_thread(std::make_shared<QtThread>("Tessivo.camera")) {}

QtCameras::~QtCameras() {
    m_thread->end();
}

std::optional<std::vector<CaptureDevice>> QtCameras::devices() const {
    const auto listed = m_list->devices();
    if (!listed) return std::nullopt;
    std::vector<CaptureDevice> devices;
    for (const QCameraDevice& device : *listed)
        devices.push_back({device.id().toStdString(), device.description().toStdString()});
    return devices;
}

void QtCameras::list(std::function<void()> listed) {
    auto make = [list = m_list, listed = std::move(listed)](QObject& owner) {
        if (owner.findChild<QMediaDevices*>() == nullptr) {
            auto* changes = new QMediaDevices(&owner);
            QObject::connect(changes, &QMediaDevices::videoInputsChanged, changes, [list] { list->read(); });
        }
        list->read();
        listed();
    };
    if (m_listedOn == ListedOn::mainThread)
        make(m_mainThread);
    else
        m_thread->post(std::move(make));
}

std::shared_ptr<CaptureSession> QtCameras::makeSession(const std::string& deviceID,
                                                       std::shared_ptr<CaptureDelegate> delegate) {
    for (const QCameraDevice& device : m_list->devices().value_or(QList<QCameraDevice>()))
        if (device.id().toStdString() == deviceID)
            return QtCaptureStream::makeSession(
                m_thread, std::make_shared<CameraStream>(device, m_askFault, std::move(delegate)));
    return nullptr;
}

} // namespace tessivo

#include "platform/qt/QtCameras.h"

#include "platform/qt/VideoFrames.h"

#include <QCamera>
#include <QMediaCaptureSession>
#include <QMediaDevices>
#include <QVideoSink>
#include <algorithm>

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

/// The way from one camera to a delegate. Shared by a session, which may go at any time, and by the work it
/// gave to the cameras' thread.
class Stream final : public std::enable_shared_from_this<Stream> {
public:
    Stream(QCameraDevice device, QtCameras::AskFault askFault, std::shared_ptr<CaptureDelegate> delegate)
        : m_device(std::move(device)), m_askFault(std::move(askFault)), m_delegate(std::move(delegate)) {}

    /// From its return on the delegate isn't called any more. Any thread.
    void silence() {
        const std::lock_guard lock(m_mutex);
        m_delegate.reset();
    }

    /// The cameras' thread, as what follows.
    void open(QObject& owner, const std::weak_ptr<QtThread>& thread) {
        if (m_open) return;
        if (const auto fault = this->fault()) return tell(*fault);
        m_open = new OpenCamera(m_device, &owner);
        QObject::connect(
            &m_open->sink, &QVideoSink::videoFrameChanged, m_open,
            [self = shared_from_this()](const QVideoFrame& frame) { self->pass(frame); },
            Qt::DirectConnection);
        // In its own turn: the camera is still in the midst of its call.
        const auto failed = [self = weak_from_this(), thread](QCamera::Error error) {
            const auto cameras = thread.lock();
            if (cameras && error != QCamera::NoError)
                cameras->post([self](QObject&) {
                    if (const auto stream = self.lock()) stream->fail();
                });
        };
        QObject::connect(&m_open->camera, &QCamera::errorOccurred, m_open, failed, Qt::DirectConnection);
        m_open->camera.start();
    }
    void close() { delete std::exchange(m_open, nullptr); }

private:
    std::optional<OpenFault> fault() const {
        return m_askFault ? m_askFault(m_device.id().toStdString()) : std::nullopt;
    }
    /// Lets go of the camera, and then asks why it didn't open.
    void fail() {
        close();
        tell(fault().value_or(OpenFault::broken));
    }
    /// Of a camera that has sent pictures it can't be said that it doesn't open.
    void tell(OpenFault fault) {
        const std::lock_guard lock(m_mutex);
        if (m_delegate && !m_delivered) m_delegate->openFailed(fault);
    }
    /// On whatever thread the pictures come.
    void pass(const QVideoFrame& frame) {
        const std::lock_guard lock(m_mutex);
        if (!m_delegate) return;
        const QImage picture = cameraImage(frame);
        if (picture.isNull()) return;
        m_delivered = true;
        m_delegate->video(picture);
    }

    const QCameraDevice m_device;
    const QtCameras::AskFault m_askFault;
    OpenCamera* m_open = nullptr; ///< the cameras' thread alone

    std::mutex m_mutex; ///< over the fields below
    std::shared_ptr<CaptureDelegate> m_delegate;
    bool m_delivered = false;
};

class CameraSession final : public CaptureSession {
public:
    CameraSession(std::shared_ptr<QtThread> thread, std::shared_ptr<Stream> stream)
        : m_thread(std::move(thread)), m_stream(std::move(stream)) {}
    ~CameraSession() override { stopRunning(); }

    void startRunning() override {
        m_thread->post([stream = m_stream, thread = std::weak_ptr(m_thread)](QObject& owner) {
            stream->open(owner, thread);
        });
    }
    void stopRunning() override {
        m_stream->silence();
        m_thread->post([stream = m_stream](QObject&) { stream->close(); });
    }

private:
    std::shared_ptr<QtThread> m_thread;
    std::shared_ptr<Stream> m_stream;
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
            return std::make_shared<CameraSession>(
                m_thread, std::make_shared<Stream>(device, m_askFault, std::move(delegate)));
    return nullptr;
}

} // namespace tessivo

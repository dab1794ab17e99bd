#include "platform/linux/QtCameras.h"

#include "platform/linux/CameraFile.h"
#include "platform/linux/CaptureHardware.h"
#include "platform/linux/VideoFrames.h"

#include <QCamera>
#include <QCameraDevice>
#include <QMediaCaptureSession>
#include <QMediaDevices>
#include <QThread>
#include <QVideoSink>
#include <algorithm>
#include <functional>
#include <map>
#include <unistd.h>

namespace tessivo {
namespace {

constexpr unsigned long patience = 2000; ///< in ms, for a camera that is still opening at the end

/// What keeps one camera open. Lives and dies on the cameras' thread.
struct OpenCamera {
    explicit OpenCamera(const QCameraDevice& device) : camera(device) {
        session.setCamera(&camera);
        session.setVideoSink(&sink);
    }

    QCamera camera;
    QVideoSink sink;
    QMediaCaptureSession session;
};

/// Where a session's frames go until it is stopped.
class FrameGate final {
public:
    explicit FrameGate(std::shared_ptr<CaptureDelegate> delegate) : m_delegate(std::move(delegate)) {}

    void pass(const QVideoFrame& frame) {
        const std::lock_guard lock(m_mutex);
        if (!m_delegate) return;
        const QImage picture = cameraImage(frame);
        if (picture.isNull()) return;
        m_delivered = true;
        m_delegate->video(picture);
    }
    /// Of a camera that has sent pictures it can't be said that it doesn't open.
    void fail(OpenFault fault) {
        const std::lock_guard lock(m_mutex);
        if (m_delegate && !m_delivered) m_delegate->openFailed(fault);
    }
    void close() {
        const std::lock_guard lock(m_mutex);
        m_delegate.reset();
    }

private:
    std::mutex m_mutex;
    std::shared_ptr<CaptureDelegate> m_delegate;
    bool m_delivered = false;
};

/// The devices' names are paths of their files.
std::optional<OpenFault> faultOf(const std::string& deviceID) {
    return deviceID.starts_with('/') ? cameraFault(deviceID) : std::nullopt;
}

} // namespace

MediaBackend::MediaBackend() {
    // The other one would need plug-ins of its own for cameras.
    if (!qEnvironmentVariableIsSet("QT_MEDIA_BACKEND")) qputenv("QT_MEDIA_BACKEND", "ffmpeg");
}

/// The thread, its list and its open cameras. Shared with the sessions, which may outlive the platform,
/// and with the work that waits on the thread.
class QtCameras::Thread final : public std::enable_shared_from_this<Thread> {
public:
    Thread() : m_thread(new QThread), m_worker(new QObject) {
        m_thread->setObjectName("Tessivo.camera");
        m_worker->moveToThread(m_thread);
        m_thread->start();
    }

    /// Ends the thread and what is open on it.
    void end() {
        QObject* worker = nullptr;
        {
            const std::lock_guard lock(m_mutex);
            worker = std::exchange(m_worker, nullptr);
        }
        // The thread ends itself: told from outside, it might do so before this work's turn.
        const auto last = [self = shared_from_this(), worker] {
            self->m_open.clear();
            delete self->m_media;
            worker->deleteLater();
            self->m_thread->quit();
        };
        QMetaObject::invokeMethod(worker, last, Qt::QueuedConnection);
        if (m_thread->wait(patience)) delete m_thread; // else left behind: a camera hangs in the system
    }

    /// Work in the order of the calls; dropped after `end`. Any thread.
    void post(std::function<void(Thread&)> work) {
        const std::lock_guard lock(m_mutex);
        if (m_worker)
            QMetaObject::invokeMethod(
                m_worker, [self = shared_from_this(), work = std::move(work)] { work(*self); },
                Qt::QueuedConnection);
    }

    std::optional<std::vector<CaptureDevice>> devices() const {
        const std::lock_guard lock(m_mutex);
        return m_devices;
    }

    void list() {
        if (!m_media) {
            m_media = new QMediaDevices;
            QObject::connect(m_media, &QMediaDevices::videoInputsChanged, m_media, [this] { list(); });
        }
        std::vector<CaptureDevice> devices;
        for (const QCameraDevice& input : QMediaDevices::videoInputs())
            devices.push_back({input.id().toStdString(), input.description().toStdString()});
        const std::lock_guard lock(m_mutex);
        m_devices = std::move(devices);
    }

    void open(const std::string& deviceID, const std::shared_ptr<FrameGate>& gate) {
        if (const auto fault = faultOf(deviceID)) return gate->fail(*fault);
        for (const QCameraDevice& input : QMediaDevices::videoInputs()) {
            if (input.id().toStdString() != deviceID) continue;
            auto camera = std::make_unique<OpenCamera>(input);
            QObject::connect(
                &camera->sink, &QVideoSink::videoFrameChanged, &camera->sink,
                [gate](const QVideoFrame& frame) { gate->pass(frame); }, Qt::DirectConnection);
            // In its own turn: the camera is still in the midst of its call.
            const auto failed = [self = weak_from_this(), deviceID, gate](QCamera::Error error) {
                const auto thread = self.lock();
                if (thread && error != QCamera::NoError)
                    thread->post([=](Thread& cameras) { cameras.fail(deviceID, gate); });
            };
            QObject::connect(&camera->camera, &QCamera::errorOccurred, &camera->camera, failed);
            camera->camera.start();
            m_open[gate] = std::move(camera);
            return;
        }
        gate->fail(OpenFault::broken);
    }

    /// Lets go of the camera, and then asks why it didn't open.
    void fail(const std::string& deviceID, const std::shared_ptr<FrameGate>& gate) {
        close(gate);
        gate->fail(faultOf(deviceID).value_or(OpenFault::broken));
    }

    void close(const std::shared_ptr<FrameGate>& gate) { m_open.erase(gate); }

private:
    QThread* m_thread;

    mutable std::mutex m_mutex; ///< over the fields up to the blank line
    QObject* m_worker;
    std::optional<std::vector<CaptureDevice>> m_devices;

    // The cameras' thread alone.
    QMediaDevices* m_media = nullptr;
    std::map<std::shared_ptr<FrameGate>, std::unique_ptr<OpenCamera>> m_open;
};

class QtCameras::Session final : public CaptureSession {
public:
    Session(std::shared_ptr<Thread> thread, std::string deviceID, std::shared_ptr<CaptureDelegate> delegate)
        : m_thread(std::move(thread)),
          m_deviceID(std::move(deviceID)),
          m_gate(std::make_shared<FrameGate>(std::move(delegate))) {}
    ~Session() override { stopRunning(); }

    void startRunning() override {
        m_thread->post([id = m_deviceID, gate = m_gate](Thread& thread) { thread.open(id, gate); });
    }
    void stopRunning() override {
        m_gate->close();
        m_thread->post([gate = m_gate](Thread& thread) { thread.close(gate); });
    }

private:
    std::shared_ptr<Thread> m_thread;
    std::string m_deviceID;
    std::shared_ptr<FrameGate> m_gate;
};

QtCameras::QtCameras(std::filesystem::path deviceFolder, SystemTree tree)
    : m_deviceFolder(std::move(deviceFolder)), m_tree(std::move(tree)) {}

QtCameras::~QtCameras() {
    if (m_thread) m_thread->end();
}

QtCameras::Thread& QtCameras::thread() {
    if (!m_thread) m_thread = std::make_shared<Thread>();
    return *m_thread;
}

std::vector<std::filesystem::path> QtCameras::deviceFiles() const {
    std::vector<std::filesystem::path> files;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(m_deviceFolder, error))
        if (entry.path().filename().string().starts_with("video")) files.push_back(entry.path());
    return files;
}

AuthorizationStatus QtCameras::authorizationStatus() const {
    auto files = deviceFiles();
    const auto isVirtual = [this](const auto& file) {
        return CaptureHardware::isVirtualCamera(m_tree, file.filename().string());
    };
    // One that a program made is open to all, and says nothing of the Mac's own.
    if (!std::ranges::all_of(files, isVirtual)) std::erase_if(files, isVirtual);
    const auto letsIn = [](const auto& file) { return access(file.c_str(), R_OK | W_OK) == 0; };
    return std::ranges::all_of(files, letsIn) ? AuthorizationStatus::authorized : AuthorizationStatus::denied;
}

std::optional<std::vector<CaptureDevice>> QtCameras::devices() const {
    if (m_thread) return m_thread->devices();
    return deviceFiles().empty() ? std::optional(std::vector<CaptureDevice>()) : std::nullopt;
}

void QtCameras::list(std::function<void()> listed) {
    thread().post([listed = std::move(listed)](Thread& thread) {
        thread.list();
        listed();
    });
}

std::shared_ptr<CaptureSession> QtCameras::makeSession(const std::string& deviceID,
                                                       std::shared_ptr<CaptureDelegate> delegate) {
    const auto known = devices();
    if (!known || std::ranges::find(*known, deviceID, &CaptureDevice::uniqueID) == known->end())
        return nullptr;
    return std::make_shared<Session>(m_thread, deviceID, std::move(delegate));
}

} // namespace tessivo

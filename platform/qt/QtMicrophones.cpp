#include "platform/qt/QtMicrophones.h"

#include <QAudioDevice>
#include <QAudioSource>
#include <QMediaDevices>

namespace tessivo {
namespace {

/// What keeps one microphone open. Lives and dies on the microphones' thread.
struct OpenMicrophone final : QObject {
    OpenMicrophone(const QAudioDevice& device, QObject* owner)
        : QObject(owner), source(device, device.preferredFormat()) {}

    QAudioSource source;
    QIODevice* bytes = nullptr; ///< the source's own
};

/// The way from one microphone to a delegate. Shared by a session, which may go at any time, and by the work
/// it gave to the microphones' thread.
class Stream final : public std::enable_shared_from_this<Stream> {
public:
    Stream(QAudioDevice device, std::shared_ptr<CaptureDelegate> delegate)
        : m_device(std::move(device)), m_delegate(std::move(delegate)) {}

    /// From its return on the delegate isn't called any more. Any thread.
    void silence() {
        const std::lock_guard lock(m_mutex);
        m_delegate.reset();
    }

    /// The microphones' thread, as what follows.
    void open(QObject& owner) {
        if (m_open) return;
        m_open = new OpenMicrophone(m_device, &owner);
        m_open->bytes = m_open->source.start();
        if (!m_open->bytes || m_open->source.error() != QAudio::NoError) return fail();
        QObject::connect(m_open->bytes, &QIODevice::readyRead, m_open, [self = weak_from_this()] {
            if (const auto stream = self.lock()) stream->read();
        });
    }
    void close() { delete std::exchange(m_open, nullptr); }

private:
    void fail() {
        close();
        const std::lock_guard lock(m_mutex);
        if (m_delegate) m_delegate->openFailed(OpenFault::broken);
    }
    void read() {
        const QAudioFormat format = m_open->source.format();
        const int bytesPerSample = format.bytesPerSample();
        m_bytes += m_open->bytes->readAll();
        if (bytesPerSample <= 0 || format.channelCount() <= 0) return;
        const auto frames = m_bytes.size() / format.bytesPerFrame();
        m_samples.resize(std::size_t(frames * format.channelCount()));
        const char* next = m_bytes.constData();
        for (float& sample : m_samples) {
            sample = format.normalizedSampleValue(next);
            next += bytesPerSample;
        }
        m_bytes.remove(0, frames * format.bytesPerFrame());
        const std::lock_guard lock(m_mutex);
        if (m_delegate && !m_samples.empty())
            m_delegate->audio({.samples = m_samples, .channelCount = format.channelCount()});
    }

    const QAudioDevice m_device;
    OpenMicrophone* m_open = nullptr; ///< as the next two, the microphones' thread alone
    QByteArray m_bytes;               ///< a last frame that isn't whole yet
    std::vector<float> m_samples;

    std::mutex m_mutex; ///< over the field below
    std::shared_ptr<CaptureDelegate> m_delegate;
};

class MicrophoneSession final : public CaptureSession {
public:
    MicrophoneSession(std::shared_ptr<QtThread> thread, std::shared_ptr<Stream> stream)
        : m_thread(std::move(thread)), m_stream(std::move(stream)) {}
    ~MicrophoneSession() override { stopRunning(); }

    void startRunning() override {
        m_thread->post([stream = m_stream](QObject& owner) { stream->open(owner); });
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

QtMicrophones::QtMicrophones() : m_thread(std::make_shared<QtThread>("Tessivo.microphone")) {}

QtMicrophones::~QtMicrophones() {
    m_thread->end();
}

std::vector<CaptureDevice> QtMicrophones::devices() const {
    std::vector<CaptureDevice> devices;
    for (const QAudioDevice& device : QMediaDevices::audioInputs())
        devices.push_back({device.id().toStdString(), device.description().toStdString()});
    return devices;
}

std::shared_ptr<CaptureSession> QtMicrophones::makeSession(const std::string& deviceID,
                                                           std::shared_ptr<CaptureDelegate> delegate) {
    for (const QAudioDevice& device : QMediaDevices::audioInputs())
        if (device.id().toStdString() == deviceID)
            return std::make_shared<MicrophoneSession>(m_thread,
                                                       std::make_shared<Stream>(device, std::move(delegate)));
    return nullptr;
}

} // namespace tessivo

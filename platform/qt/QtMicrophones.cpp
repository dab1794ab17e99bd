#include "platform/qt/QtMicrophones.h"

#include "platform/qt/QtCaptureStream.h"

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
};

class MicrophoneStream final : public QtCaptureStream {
public:
    MicrophoneStream(QAudioDevice device, std::shared_ptr<CaptureDelegate> delegate)
        : QtCaptureStream(std::move(delegate)), m_device(std::move(device)) {}

private:
    QObject* open(QObject& owner) override {
        auto opened = std::make_unique<OpenMicrophone>(m_device, &owner);
        QIODevice* const bytes = opened->source.start(); // the source's own
        if (!bytes || opened->source.error() != QAudio::NoError) {
            fail(OpenFault::broken);
            return nullptr;
        }
        const auto self = std::static_pointer_cast<MicrophoneStream>(shared_from_this());
        const auto read = [self, bytes, format = opened->source.format()] {
            self->pass(bytes->readAll(), format);
        };
        QObject::connect(bytes, &QIODevice::readyRead, opened.get(), read);
        return opened.release();
    }
    void pass(const QByteArray& bytes, const QAudioFormat& format) {
        m_bytes += bytes;
        if (format.bytesPerFrame() <= 0) return;
        const auto frames = m_bytes.size() / format.bytesPerFrame();
        if (frames == 0) return;
        std::vector<float> samples(std::size_t(frames * format.channelCount()));
        const char* next = m_bytes.constData();
        for (float& sample : samples) {
            sample = format.normalizedSampleValue(next);
            next += format.bytesPerSample();
        }
        m_bytes.remove(0, frames * format.bytesPerFrame());
        deliver([&](CaptureDelegate& delegate) {
            delegate.audio({.samples = samples, .channelCount = format.channelCount()});
        });
    }

    const QAudioDevice m_device;
    QByteArray m_bytes; ///< a last frame that isn't whole yet
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
            return QtCaptureStream::makeSession(
                m_thread, std::make_shared<MicrophoneStream>(device, std::move(delegate)));
    return nullptr;
}

} // namespace tessivo

#include "platform/qt/QtMicrophone.h"

#include <QAudioSource>
#include <QIODevice>
#include <QPointer>

namespace tessivo {

/// The way from the device to the delegate: Qt writes into it. Shared by the session, which may go at any
/// time, and by the work it gave to the thread.
class QtMicrophone::Stream final : public QIODevice {
public:
    Stream(QAudioDevice device, std::shared_ptr<CaptureDelegate> delegate)
        : m_device(std::move(device)), m_format(m_device.preferredFormat()), m_delegate(std::move(delegate)) {
        QIODevice::open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    }

    /// From its return on the delegate isn't called any more. Any thread.
    void silence() {
        const std::lock_guard lock(m_mutex);
        m_delegate.reset();
    }

    /// The microphones' thread, as what follows.
    void begin(QObject& owner) {
        if (m_source || isSilenced()) return;
        m_source = new QAudioSource(m_device, m_format, &owner);
        m_source->start(this);
        if (m_source->error() != QAudio::NoError) fail();
    }
    void end() { delete m_source.data(); }

private:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* bytes, qint64 count) override {
        m_bytes.append(bytes, std::size_t(count));
        const auto samples = QtMicrophone::samples(m_format, m_bytes);
        const std::lock_guard lock(m_mutex);
        if (m_delegate && !samples.empty())
            m_delegate->audio({.samples = samples, .channelCount = m_format.channelCount()});
        return count;
    }
    bool isSilenced() {
        const std::lock_guard lock(m_mutex);
        return !m_delegate;
    }
    void fail() {
        end();
        const std::lock_guard lock(m_mutex);
        if (m_delegate) m_delegate->openFailed(OpenFault::broken);
    }

    const QAudioDevice m_device;
    const QAudioFormat m_format;
    QPointer<QAudioSource> m_source; ///< the microphones' thread alone
    std::string m_bytes;             ///< the thread that writes alone

    std::mutex m_mutex; ///< over the field below
    std::shared_ptr<CaptureDelegate> m_delegate;
};

QtMicrophone::QtMicrophone(std::shared_ptr<QtThread> thread, QAudioDevice device,
                           std::shared_ptr<CaptureDelegate> delegate)
    : m_thread(std::move(thread)),
      m_stream(std::make_shared<Stream>(std::move(device), std::move(delegate))) {}

void QtMicrophone::startRunning() {
    m_thread->post([stream = m_stream](QObject& owner) { stream->begin(owner); });
}

void QtMicrophone::stopRunning() {
    m_stream->silence();
    m_thread->post([stream = m_stream](QObject&) { stream->end(); });
}

std::vector<float> QtMicrophone::samples(const QAudioFormat& format, std::string& bytes) {
    const auto frame = std::size_t(format.bytesPerFrame());
    const auto sample = std::size_t(format.bytesPerSample());
    if (frame == 0 || sample == 0) return {};
    const std::size_t whole = bytes.size() / frame * frame;
    std::vector<float> out;
    out.reserve(whole / sample);
    for (std::size_t at = 0; at < whole; at += sample)
        out.push_back(format.normalizedSampleValue(bytes.data() + at));
    bytes.erase(0, whole);
    return out;
}

} // namespace tessivo

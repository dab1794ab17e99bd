#include "platform/qt/QtCaptureStream.h"

namespace tessivo {

class QtCaptureStream::Session final : public CaptureSession {
public:
    Session(std::shared_ptr<QtThread> thread, std::shared_ptr<QtCaptureStream> stream)
        : m_thread(std::move(thread)), m_stream(std::move(stream)) {}
    ~Session() override { stopRunning(); }

    void startRunning() override {
        m_thread->post([stream = m_stream](QObject& owner) {
            if (!stream->isOpen()) stream->m_open = stream->open(owner);
        });
    }
    void stopRunning() override {
        {
            const std::lock_guard lock(m_stream->m_mutex);
            m_stream->m_delegate.reset();
        }
        m_thread->post([stream = m_stream](QObject&) { stream->close(); });
    }

private:
    std::shared_ptr<QtThread> m_thread;
    std::shared_ptr<QtCaptureStream> m_stream;
};

std::shared_ptr<CaptureSession> QtCaptureStream::makeSession(std::shared_ptr<QtThread> thread,
                                                             std::shared_ptr<QtCaptureStream> stream) {
    return std::make_shared<Session>(std::move(thread), std::move(stream));
}

void QtCaptureStream::fail(OpenFault fault) {
    close();
    const std::lock_guard lock(m_mutex);
    if (m_delegate && !m_delivered) m_delegate->openFailed(fault);
}

void QtCaptureStream::deliver(const std::function<void(CaptureDelegate&)>& give) {
    const std::lock_guard lock(m_mutex);
    if (!m_delegate) return;
    m_delivered = true;
    give(*m_delegate);
}

} // namespace tessivo

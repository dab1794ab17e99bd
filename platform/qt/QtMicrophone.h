#pragma once

#include "platform/Capture.h"
#include "platform/qt/QtThread.h"

#include <QAudioDevice>

namespace tessivo {

/// One microphone in exactly the format that its device prefers, on a thread with an event loop. None of its
/// calls waits for the device; it may be let go on any thread.
class QtMicrophone final : public CaptureSession {
public:
    QtMicrophone(std::shared_ptr<QtThread> thread, QAudioDevice device,
                 std::shared_ptr<CaptureDelegate> delegate);
    ~QtMicrophone() override { stopRunning(); }

    void startRunning() override;
    void stopRunning() override;

    /// The whole frames at the beginning of the bytes, as numbers from -1 to 1; what is no whole frame is
    /// left in `bytes` for the next call.
    static std::vector<float> samples(const QAudioFormat& format, std::string& bytes);

private:
    class Stream;

    std::shared_ptr<QtThread> m_thread;
    std::shared_ptr<Stream> m_stream;
};

} // namespace tessivo

#pragma once

#include "platform/Capture.h"
#include "platform/qt/QtThread.h"

namespace tessivo {

/// The computer's microphones by Qt, read on a thread of their own, each in exactly the format that it
/// prefers. For a system that gives zeros in place of samples to a program without permission: to be used
/// only with it. Main thread, while the application object lives.
class QtMicrophones final {
public:
    QtMicrophones();
    ~QtMicrophones();
    QtMicrophones(const QtMicrophones&) = delete;
    QtMicrophones& operator=(const QtMicrophones&) = delete;

    std::vector<CaptureDevice> devices() const;
    /// A session on a microphone of the list, or null. Neither of its calls waits for the device; that it
    /// doesn't open is told to the delegate. It may outlive this object, and then does nothing.
    std::shared_ptr<CaptureSession> makeSession(const std::string& deviceID,
                                                std::shared_ptr<CaptureDelegate> delegate);

private:
    std::shared_ptr<QtThread> m_thread;
};

} // namespace tessivo

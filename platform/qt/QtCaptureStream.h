#pragma once

#include "platform/Capture.h"
#include "platform/qt/QtThread.h"

#include <QPointer>

namespace tessivo {

/// The way from one device of Qt's to a delegate. Shared by its session, which may go at any time, and by the
/// work that the session gave to the devices' thread.
class QtCaptureStream : public std::enable_shared_from_this<QtCaptureStream> {
public:
    explicit QtCaptureStream(std::shared_ptr<CaptureDelegate> delegate) : m_delegate(std::move(delegate)) {}
    virtual ~QtCaptureStream() = default;

    /// A session whose calls post to the thread and wait for nothing.
    static std::shared_ptr<CaptureSession> makeSession(std::shared_ptr<QtThread> thread,
                                                       std::shared_ptr<QtCaptureStream> stream);

protected:
    /// Opens the device, which stays open as long as the child of the owner that it gives back; null after a
    /// call of `fail`. The devices' thread, as `fail`.
    virtual QObject* open(QObject& owner) = 0;
    /// Lets go of the device and tells the delegate, unless the device has delivered something already.
    void fail(OpenFault fault);
    bool isOpen() const { return !m_open.isNull(); }
    void close() { delete m_open.data(); }
    /// Calls with the delegate, as long as there is one. Any thread.
    void deliver(const std::function<void(CaptureDelegate&)>& give);

private:
    class Session;

    QPointer<QObject> m_open; ///< the devices' thread alone; its owner may go first

    std::mutex m_mutex; ///< over the fields below
    std::shared_ptr<CaptureDelegate> m_delegate;
    bool m_delivered = false;
};

} // namespace tessivo

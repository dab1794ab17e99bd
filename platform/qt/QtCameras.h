#pragma once

#include "platform/Capture.h"
#include "platform/qt/QtThread.h"

#include <QCameraDevice>

namespace tessivo {

/// The computer's cameras by Qt, on a thread of their own that alone opens them. Made and let go on the main
/// thread, while the application object lives.
class QtCameras final {
public:
    /// Where Qt may be asked for its list: a driver that hangs must not hold the main thread, but some
    /// systems keep that list on it.
    enum class ListedOn { camerasThread, mainThread };
    /// Why a camera doesn't open, as far as the system tells beyond Qt; nothing where it would. Called on the
    /// cameras' thread while the camera isn't open there.
    using AskFault = std::function<std::optional<OpenFault>(const std::string& deviceID)>;

    explicit QtCameras(ListedOn listedOn, AskFault askFault = nullptr);
    ~QtCameras();
    QtCameras(const QtCameras&) = delete;
    QtCameras& operator=(const QtCameras&) = delete;

    /// The newest list; nothing until it has been made once.
    std::optional<std::vector<CaptureDevice>> devices() const;
    /// Makes the list, keeps it up to date from then on, and calls on the thread that lists.
    void list(std::function<void()> listed);
    /// A session on a camera of the list, or null. Neither of its calls waits for the camera; that it doesn't
    /// open is told to the delegate. It may outlive this object, and then does nothing.
    std::shared_ptr<CaptureSession> makeSession(const std::string& deviceID,
                                                std::shared_ptr<CaptureDelegate> delegate);

private:
    class List;

    const ListedOn m_listedOn;
    const AskFault m_askFault;
    std::shared_ptr<List> m_list;
    std::shared_ptr<QtThread> m_thread;
    QObject m_mainThread; ///< what listing makes on the main thread
};

} // namespace tessivo

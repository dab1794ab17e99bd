#pragma once

#include "platform/Capture.h"
#include "platform/linux/SystemTree.h"

#include <filesystem>
#include <mutex>

namespace tessivo {

/// Chooses the part of Qt that talks to cameras. It does so in the environment, which other threads read: to
/// be made before any of them begins.
class MediaBackend final {
public:
    MediaBackend();
};

/// The cameras of this computer, on a thread of their own that alone touches them. The thread begins with
/// the first list. Made and let go on the main thread, while the application object lives.
class QtCameras final {
public:
    /// The folder in which the system puts the cameras' device files, and the tree in which it tells of them.
    explicit QtCameras(std::filesystem::path deviceFolder = "/dev", SystemTree tree = SystemTree());
    ~QtCameras();
    QtCameras(const QtCameras&) = delete;
    QtCameras& operator=(const QtCameras&) = delete;

    /// Denied where the file of a camera doesn't let us in. Of cameras made by programs that counts only
    /// where there is no other.
    AuthorizationStatus authorizationStatus() const;
    /// The newest list; nothing until it has been made once, unless there is no camera file at all.
    std::optional<std::vector<CaptureDevice>> devices() const;
    /// Makes the list, or makes it anew, and then calls on the cameras' thread.
    void list(std::function<void()> listed);
    /// A session on a camera of the list, or null. Neither of its calls waits for the camera; that it doesn't
    /// open is told to the delegate.
    std::shared_ptr<CaptureSession> makeSession(const std::string& deviceID,
                                                std::shared_ptr<CaptureDelegate> delegate);

private:
    class Thread;
    class Session;

    Thread& thread();
    std::vector<std::filesystem::path> deviceFiles() const;

    std::filesystem::path m_deviceFolder;
    SystemTree m_tree;
    std::shared_ptr<Thread> m_thread;
};

} // namespace tessivo

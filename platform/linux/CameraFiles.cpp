#include "platform/linux/CameraFiles.h"

#include "platform/linux/CaptureHardware.h"
#include "platform/linux/Descriptor.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <linux/videodev2.h>
#include <sys/ioctl.h>

namespace tessivo {

std::vector<std::filesystem::path> CameraFiles::list() const {
    std::vector<std::filesystem::path> files;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(m_folder, error))
        if (entry.path().filename().string().starts_with("video")) files.push_back(entry.path());
    return files;
}

AuthorizationStatus CameraFiles::authorizationStatus() const {
    auto files = list();
    const auto isVirtual = [this](const auto& file) {
        return CaptureHardware::isVirtualCamera(m_tree, file.filename().string());
    };
    // One that a program made is open to all, and says nothing of the Mac's own.
    if (!std::ranges::all_of(files, isVirtual)) std::erase_if(files, isVirtual);
    const auto letsIn = [](const auto& file) { return ::access(file.c_str(), R_OK | W_OK) == 0; };
    return std::ranges::all_of(files, letsIn) ? AuthorizationStatus::authorized : AuthorizationStatus::denied;
}

OpenFault CameraFiles::faultOf(int error) {
    switch (error) {
    case EBUSY:
        return OpenFault::busy;
    case EACCES:
    case EPERM:
        return OpenFault::refused;
    default:
        return OpenFault::broken;
    }
}

std::optional<OpenFault> CameraFiles::fault(const std::string& file) {
    if (!file.starts_with('/')) return std::nullopt;
    const Descriptor camera(::open(file.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
    if (camera < 0) return faultOf(errno);
    // Many may open a camera and one may stream. To ask for no buffers changes nothing, and is refused while
    // another program has some.
    for (const auto type : {V4L2_BUF_TYPE_VIDEO_CAPTURE, V4L2_BUF_TYPE_VIDEO_CAPTURE_MPLANE}) {
        v4l2_requestbuffers none{};
        none.type = type;
        none.memory = V4L2_MEMORY_MMAP;
        if (::ioctl(camera, VIDIOC_REQBUFS, &none) < 0 && errno == EBUSY) return OpenFault::busy;
    }
    return std::nullopt;
}

} // namespace tessivo

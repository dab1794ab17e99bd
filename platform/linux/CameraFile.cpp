#include "platform/linux/CameraFile.h"

#include "platform/linux/Descriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <linux/videodev2.h>
#include <sys/ioctl.h>

namespace tessivo {

OpenFault cameraFaultOf(int error) {
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

std::optional<OpenFault> cameraFault(const std::string& file) {
    const Descriptor camera(::open(file.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
    if (camera < 0) return cameraFaultOf(errno);
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

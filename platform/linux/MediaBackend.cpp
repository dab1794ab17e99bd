#include "platform/linux/MediaBackend.h"

#include <QtGlobal>

namespace tessivo {

MediaBackend::MediaBackend() {
    // The other one would need plug-ins of its own for cameras.
    if (!qEnvironmentVariableIsSet("QT_MEDIA_BACKEND")) qputenv("QT_MEDIA_BACKEND", "ffmpeg");
}

} // namespace tessivo

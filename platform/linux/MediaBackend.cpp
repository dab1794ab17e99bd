#include "platform/linux/MediaBackend.h"

#include <QCoreApplication>

namespace tessivo {

MediaBackend::MediaBackend() {
    // The other one would need plug-ins of its own for cameras.
    if (!qEnvironmentVariableIsSet("QT_MEDIA_BACKEND")) qputenv("QT_MEDIA_BACKEND", "ffmpeg");
    // Else Qt would begin one on each thread that brings pictures, and wait for it at every one of them.
    QCoreApplication::setAttribute(Qt::AA_ForceRasterWidgets);
}

} // namespace tessivo

#pragma once

#include <QImage>
#include <QVideoFrame>

namespace tessivo {

/// The frame as a picture that owns its pixels, turned and mirrored as it says of itself; on any thread. Null
/// for a frame that can't be read, such as a torn JPEG.
QImage cameraImage(const QVideoFrame& frame);

} // namespace tessivo

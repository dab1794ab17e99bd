#pragma once

#include <QImage>
#include <QVideoFrame>

namespace tessivo {

/// The frame as a picture that owns its pixels, made without a graphics card, on any thread. Null for a
/// frame that can't be read, such as a torn JPEG.
QImage cameraImage(const QVideoFrame& frame);

} // namespace tessivo

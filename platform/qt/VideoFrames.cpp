#include "platform/qt/VideoFrames.h"

namespace tessivo {
namespace {

/// The same pixels in one plane: Qt 6.4 reads beyond the planes of this format.
QVideoFrame packed(QVideoFrame planar) {
    QVideoFrame out(QVideoFrameFormat(planar.size(), QVideoFrameFormat::Format_YUYV));
    if (!planar.map(QVideoFrame::ReadOnly) || planar.planeCount() < 3 || !out.map(QVideoFrame::WriteOnly))
        return {};
    const auto line = [&](int plane, int y) { return planar.bits(plane) + y * planar.bytesPerLine(plane); };
    for (int y = 0; y < planar.height(); ++y) {
        uchar* pair = out.bits(0) + y * out.bytesPerLine(0);
        for (int x = 0; x + 1 < planar.width(); x += 2, pair += 4) {
            pair[0] = line(0, y)[x];
            pair[1] = line(1, y)[x / 2];
            pair[2] = line(0, y)[x + 1];
            pair[3] = line(2, y)[x / 2];
        }
    }
    planar.unmap();
    out.unmap();
    out.setMirrored(planar.mirrored());
    out.setRotationAngle(planar.rotationAngle());
    return out;
}

} // namespace

QImage cameraImage(const QVideoFrame& frame) {
    return frame.pixelFormat() == QVideoFrameFormat::Format_YUV422P ? packed(frame).toImage()
                                                                    : frame.toImage();
}

} // namespace tessivo

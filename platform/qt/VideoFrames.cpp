#include "platform/qt/VideoFrames.h"

#include <algorithm>

namespace tessivo {
namespace {

/// Where the three components of a pixel lie in a mapped frame.
struct Component {
    const uchar* data = nullptr;
    int stride = 0; ///< bytes from line to line
    int step = 1;   ///< bytes from sample to sample
    int across = 1; ///< pixels that share a sample, sideways
    int down = 1;   ///< and downward

    uchar at(int x, int y) const {
        return data[std::ptrdiff_t(y / down) * stride + std::ptrdiff_t(x / across) * step];
    }
    std::ptrdiff_t end(int width, int height) const {
        return std::ptrdiff_t((height - 1) / down) * stride + std::ptrdiff_t((width - 1) / across) * step + 1;
    }
};

struct Layout {
    Component y, u, v;
    int planes[3] = {0, 0, 0}; ///< which plane each component lies in
};

/// Video range BT.601, what webcams send.
QRgb rgb(int y, int u, int v) {
    const int c = 298 * (y - 16), d = u - 128, e = v - 128;
    const auto bounded = [](int value) { return std::clamp(value >> 8, 0, 255); };
    return qRgb(bounded(c + 409 * e + 128), bounded(c - 100 * d - 208 * e + 128), bounded(c + 516 * d + 128));
}

std::optional<Layout> layout(const QVideoFrame& frame) {
    using Format = QVideoFrameFormat::PixelFormat;
    const auto packed = [&](int y, int u, int v) {
        const uchar* bits = frame.bits(0);
        const int stride = frame.bytesPerLine(0);
        return Layout{{bits + y, stride, 2}, {bits + u, stride, 4, 2}, {bits + v, stride, 4, 2}};
    };
    const auto planar = [&](int u, int v, int down) {
        return Layout{{frame.bits(0), frame.bytesPerLine(0)},
                      {frame.bits(u), frame.bytesPerLine(u), 1, 2, down},
                      {frame.bits(v), frame.bytesPerLine(v), 1, 2, down},
                      {0, u, v}};
    };
    const auto twoPlanes = [&](int u, int v) {
        return Layout{{frame.bits(0), frame.bytesPerLine(0)},
                      {frame.bits(1) + u, frame.bytesPerLine(1), 2, 2, 2},
                      {frame.bits(1) + v, frame.bytesPerLine(1), 2, 2, 2},
                      {0, 1, 1}};
    };
    switch (frame.pixelFormat()) {
    case Format::Format_YUYV:
        return packed(0, 1, 3);
    case Format::Format_UYVY:
        return packed(1, 0, 2);
    case Format::Format_YUV420P:
        return planar(1, 2, 2);
    case Format::Format_YV12:
        return planar(2, 1, 2);
    case Format::Format_YUV422P:
        return planar(1, 2, 1);
    case Format::Format_NV12:
        return twoPlanes(0, 1);
    case Format::Format_NV21:
        return twoPlanes(1, 0);
    default:
        return std::nullopt;
    }
}

QImage fromYUV(const QVideoFrame& frame, const Layout& layout) {
    const int width = frame.width(), height = frame.height();
    const Component* components[] = {&layout.y, &layout.u, &layout.v};
    for (int i = 0; i < 3; ++i) {
        const Component& component = *components[i];
        const uchar* plane = frame.bits(layout.planes[i]);
        if (!plane ||
            component.data - plane + component.end(width, height) > frame.mappedBytes(layout.planes[i]))
            return {};
    }
    QImage picture(width, height, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < width; ++x)
            line[x] = rgb(layout.y.at(x, y), layout.u.at(x, y), layout.v.at(x, y));
    }
    return picture;
}

QImage fromMapped(const QVideoFrame& frame) {
    if (frame.pixelFormat() == QVideoFrameFormat::Format_Jpeg)
        return QImage::fromData(frame.bits(0), frame.mappedBytes(0), "JPG");
    const auto format = QVideoFrameFormat::imageFormatFromPixelFormat(frame.pixelFormat());
    if (format != QImage::Format_Invalid) {
        if (std::ptrdiff_t(frame.bytesPerLine(0)) * frame.height() > frame.mappedBytes(0)) return {};
        return QImage(frame.bits(0), frame.width(), frame.height(), frame.bytesPerLine(0), format).copy();
    }
    const auto components = layout(frame);
    return components ? fromYUV(frame, *components) : QImage();
}

} // namespace

QImage cameraImage(const QVideoFrame& frame) {
    QVideoFrame mapped = frame;
    if (mapped.width() < 1 || mapped.height() < 1 || !mapped.map(QVideoFrame::ReadOnly)) return {};
    QImage picture = fromMapped(mapped);
    mapped.unmap();
    return picture;
}

} // namespace tessivo

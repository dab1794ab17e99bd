#include "platform/qt/VideoFrames.h"

#include <QBuffer>
#include <cstring>
#include <gtest/gtest.h>

namespace tessivo {
namespace {

using Format = QVideoFrameFormat::PixelFormat;

/// A frame of two rows of pixels, red above blue for the packed and 4:2:2 formats, all red for the others.
QVideoFrame frameOf(Format format, const std::vector<std::vector<uchar>>& planes) {
    QVideoFrame frame(QVideoFrameFormat(QSize(4, 2), format));
    EXPECT_TRUE(frame.map(QVideoFrame::WriteOnly));
    EXPECT_EQ(std::size_t(frame.planeCount()), planes.size());
    for (int plane = 0; plane < frame.planeCount(); ++plane) {
        const auto& bytes = planes[std::size_t(plane)];
        const std::size_t rows = plane == 0 || format == Format::Format_YUV422P ? 2 : 1;
        const std::size_t width = bytes.size() / rows;
        for (std::size_t row = 0; row < rows; ++row)
            std::memcpy(frame.bits(plane) + row * std::size_t(frame.bytesPerLine(plane)), &bytes[row * width],
                        width);
    }
    frame.unmap();
    return frame;
}

constexpr uchar redY = 81, redU = 90, redV = 240, blueY = 41, blueU = 240, blueV = 110;

TEST(VideoFrames, everyFormatOfACameraGivesItsColors) {
    const std::vector<uchar> luma(8, redY), twoU{redU, redU}, twoV{redV, redV};
    struct {
        Format format;
        std::vector<std::vector<uchar>> planes;
        QColor below;
    } const cases[] = {
        {Format::Format_YUYV,
         {{redY, redU, redY, redV, redY, redU, redY, redV, // above, then below
           blueY, blueU, blueY, blueV, blueY, blueU, blueY, blueV}},
         Qt::blue},
        {Format::Format_UYVY,
         {{redU, redY, redV, redY, redU, redY, redV, redY, //
           blueU, blueY, blueV, blueY, blueU, blueY, blueV, blueY}},
         Qt::blue},
        {Format::Format_YUV422P,
         {{redY, redY, redY, redY, blueY, blueY, blueY, blueY},
          {redU, redU, blueU, blueU},
          {redV, redV, blueV, blueV}},
         Qt::blue},
        {Format::Format_NV12, {luma, {redU, redV, redU, redV}}, Qt::red},
        {Format::Format_NV21, {luma, {redV, redU, redV, redU}}, Qt::red},
        {Format::Format_YUV420P, {luma, twoU, twoV}, Qt::red},
        {Format::Format_YV12, {luma, twoV, twoU}, Qt::red},
    };
    for (const auto& [format, planes, below] : cases) {
        const QImage picture = cameraImage(frameOf(format, planes));
        ASSERT_EQ(picture.size(), QSize(4, 2));
        for (const auto& [y, expected] : {std::pair(0, QColor(Qt::red)), std::pair(1, below)}) {
            const QColor color = picture.pixelColor(3, y);
            EXPECT_TRUE(std::abs(color.red() - expected.red()) < 10 && color.green() < 10 &&
                        std::abs(color.blue() - expected.blue()) < 10)
                << int(format) << " " << color.name().toStdString();
        }
    }
}

TEST(VideoFrames, picturesOutliveTheirFrame) {
    QImage picture;
    {
        QVideoFrame frame(QVideoFrameFormat(QSize(4, 2), Format::Format_BGRX8888));
        ASSERT_TRUE(frame.map(QVideoFrame::WriteOnly));
        std::memset(frame.bits(0), 0x40, std::size_t(frame.mappedBytes(0)));
        frame.unmap();
        picture = cameraImage(frame);
    }
    ASSERT_EQ(picture.size(), QSize(4, 2));
    EXPECT_EQ(picture.pixel(3, 1) & 0xffffff, 0x404040u);
}

TEST(VideoFrames, aMirroredFrameGivesAMirroredPicture) {
    for (const bool mirrored : {false, true}) {
        QVideoFrame frame(QVideoFrameFormat(QSize(4, 2), Format::Format_BGRX8888));
        ASSERT_TRUE(frame.map(QVideoFrame::WriteOnly));
        std::memset(frame.bits(0), 0, std::size_t(frame.mappedBytes(0)));
        std::memset(frame.bits(0), 0xff, 4);
        frame.unmap();
        frame.setMirrored(mirrored);
        const QImage picture = cameraImage(frame);
        EXPECT_EQ(picture.pixelColor(mirrored ? 3 : 0, 0), QColor(Qt::white));
        EXPECT_EQ(picture.pixelColor(mirrored ? 0 : 3, 0), QColor(Qt::black));
    }
}

TEST(VideoFrames, whatCantBeReadIsNoPicture) {
    EXPECT_TRUE(cameraImage(QVideoFrame()).isNull());
    QVideoFrame torn(QVideoFrameFormat(QSize(64, 64), Format::Format_Jpeg));
    if (torn.map(QVideoFrame::WriteOnly)) torn.unmap();
    EXPECT_TRUE(cameraImage(torn).isNull());
}

} // namespace
} // namespace tessivo

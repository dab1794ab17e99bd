#include "platform/linux/VideoFrames.h"

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

std::vector<uchar> twoRows(std::vector<uchar> above, const std::vector<uchar>& below) {
    above.insert(above.end(), below.begin(), below.end());
    return above;
}

TEST(VideoFrames, everyFormatOfACameraGivesItsColors) {
    const std::vector<uchar> luma = twoRows({redY, redY, redY, redY}, {redY, redY, redY, redY});
    const std::vector<uchar> twoU{redU, redU}, twoV{redV, redV};
    struct {
        Format format;
        std::vector<std::vector<uchar>> planes;
        bool blueBelow;
    } const cases[] = {
        {Format::Format_YUYV,
         {twoRows({redY, redU, redY, redV, redY, redU, redY, redV},
                  {blueY, blueU, blueY, blueV, blueY, blueU, blueY, blueV})},
         true},
        {Format::Format_UYVY,
         {twoRows({redU, redY, redV, redY, redU, redY, redV, redY},
                  {blueU, blueY, blueV, blueY, blueU, blueY, blueV, blueY})},
         true},
        {Format::Format_NV12, {luma, {redU, redV, redU, redV}}, false},
        {Format::Format_NV21, {luma, {redV, redU, redV, redU}}, false},
        {Format::Format_YUV420P, {luma, twoU, twoV}, false},
        {Format::Format_YV12, {luma, twoV, twoU}, false},
    };
    for (const auto& [format, planes, blueBelow] : cases) {
        SCOPED_TRACE(int(format));
        const QImage picture = cameraImage(frameOf(format, planes));
        ASSERT_EQ(picture.size(), QSize(4, 2));
        const QColor above = picture.pixelColor(3, 0), below = picture.pixelColor(3, 1);
        EXPECT_TRUE(above.red() > 245 && above.green() < 10 && above.blue() < 10)
            << above.name().toStdString();
        const QColor expected = blueBelow ? QColor(0, 0, 255) : QColor(255, 0, 0);
        EXPECT_NEAR(below.red(), expected.red(), 10);
        EXPECT_NEAR(below.blue(), expected.blue(), 10);
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

TEST(VideoFrames, whatCantBeReadIsNoPicture) {
    EXPECT_TRUE(cameraImage(QVideoFrame()).isNull());
    QVideoFrame torn(QVideoFrameFormat(QSize(64, 64), Format::Format_Jpeg));
    if (torn.map(QVideoFrame::WriteOnly)) torn.unmap();
    EXPECT_TRUE(cameraImage(torn).isNull());
}

} // namespace
} // namespace tessivo

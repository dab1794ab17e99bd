#include "app/pages/cameras/CameraPreview.h"
#include "tests/app/pages/SoundPages.h"

using namespace tessivo;
using namespace tessivo::pagetest;

namespace {

const std::string faceTime = "FaceTime HD Camera";
const std::string faceTimeID = "47B4B64B-7067-4B9C-AD2B-AE273A71F4B5";

class CamerasTests : public SoundFixture {
protected:
    void send(const std::string& id, std::size_t frames) {
        ASSERT_TRUE(controls->sendFrames(id, frames));
        pass(250ms);
    }
    CameraPreview* preview() { return findByName<CameraPreview>(view.get(), "Camera picture"); }
};

} // namespace

TEST_F(CamerasTests, fourFramesAndAnAnswerPassAndNothingLess) {
    open(Page::cameras);
    EXPECT_EQ(preview(), nullptr);
    EXPECT_TRUE(press(faceTime, "Picture looks right"));
    EXPECT_TRUE(shown("Not run")) << "an answer without a picture proves nothing";
    EXPECT_TRUE(press(faceTime, "Open Camera"));
    send(faceTimeID, 3);
    pass(60s);
    EXPECT_FALSE(state().cameras[0].framesSeen || shown("Sending a picture"));
    send(faceTimeID, 1);
    EXPECT_TRUE(shown("Sending a picture") && shown("Picture looked right"));
    EXPECT_TRUE(press(faceTime, "Problem"));
    EXPECT_TRUE(shown("Problem: FaceTime HD Camera"));
    EXPECT_TRUE(press(faceTime, "Problem"));
    EXPECT_TRUE(shown("Say how the picture looked")) << "taken back";
    expectWhole();

    EXPECT_TRUE(press(faceTime, "Close Camera"));
    EXPECT_TRUE(!preview() && !shown("Sending a picture") && released(faceTimeID));
    EXPECT_TRUE(press(faceTime, "Picture looks right")) << "the answer may come afterwards";
    EXPECT_TRUE(shown("Picture looked right"));
}

TEST_F(CamerasTests, theWholePictureIsShownLiveAndNeverLargerThanItsRoom) {
    open(Page::cameras);
    EXPECT_TRUE(press(faceTime, "Open Camera"));
    ASSERT_NE(preview(), nullptr);
    const auto pixel = [this](double x, double y) {
        const QImage shot = preview()->grab().toImage();
        return shot.pixelColor(int(x * shot.width()), int(y * shot.height()));
    };
    EXPECT_EQ(pixel(0.5, 0.5), QColor(Qt::black)) << "nothing has come yet";
    for (const int width : {950, 620, 1400}) {
        view->resize(width, 752);
        settle();
        EXPECT_EQ(preview()->width(), std::min(560, width - 88)) << "page and card take 44 on each side";
        EXPECT_EQ(preview()->height(), preview()->width() * 9 / 16);
    }
    send(faceTimeID, 1);
    // The bars of the test picture from edge to edge, and its square that has moved off the left edge.
    EXPECT_EQ(pixel(0.02, 0.1), QColor(235, 235, 235));
    EXPECT_EQ(pixel(0.98, 0.1), QColor(16, 16, 16));
    EXPECT_EQ(pixel(0.01, 0.5), QColor(255, 140, 0));
    send(faceTimeID, 40);
    EXPECT_EQ(pixel(0.01, 0.5), QColor(235, 235, 235)) << "the newest frame";
}

TEST_F(CamerasTests, aSecondCameraProvesItselfAnew) {
    controls->addDevice(MediaType::video, {"usb", "USB Camera"});
    open(Page::cameras);
    EXPECT_TRUE(press(faceTime, "Open Camera"));
    send(faceTimeID, 4);
    EXPECT_TRUE(press("USB Camera", "Open Camera") && released(faceTimeID));
    EXPECT_NE(button(faceTime, "Open Camera"), nullptr);
    EXPECT_FALSE(shown("Sending a picture") || state().cameras[1].framesSeen);
    EXPECT_TRUE(state().cameras[0].framesSeen);
    EXPECT_EQ(view->findChildren<CameraPreview*>().size(), 1);
    send("usb", 4);
    EXPECT_TRUE(press("USB Camera", "Picture looks right"));
    EXPECT_TRUE(shown("Say how the picture looked")) << "the first is still unanswered";
    EXPECT_TRUE(press(faceTime, "Picture looks right"));
    EXPECT_TRUE(shown("All 2 cameras looked right"));
}

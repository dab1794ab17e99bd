#include "app/pages/trackpad/TrackpadArea.h"
#include "app/pages/trackpad/TrackpadSurface.h"
#include "tests/app/pages/input/InputPages.h"

#include <QNativeGestureEvent>
#include <QPointingDevice>
#include <QTest>
#include <QWheelEvent>
#include <limits>

namespace tessivo::pagetest {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

/// The middle of a cell.
FingerPosition cell(int number) {
    return {(number % 8 + 0.5) / 8, (number / 8 + 0.5) / 5};
}

class TrackpadPageTest : public InputFixture {
protected:
    void SetUp() override {
        InputFixture::SetUp();
        open(Page::trackpad);
        surface = findByName<TrackpadSurface>(view.get(), QStringLiteral("Trackpad test area"));
        ASSERT_TRUE(surface);
    }
    const TrackpadTest& trackpad() const { return state().trackpad; }
    bool has(const char* name) { return findByName<QWidget>(view.get(), QString::fromUtf8(name)); }
    QString chip(const char* name) {
        return accessibleValueOf(findByName<QWidget>(view.get(), QString::fromUtf8(name)));
    }
    void wheel(QPoint pixels, QPoint angle, Qt::ScrollPhase phase) {
        QWheelEvent event(QPointF(5, 5), surface->mapToGlobal(QPointF(5, 5)), pixels, angle, {}, {}, phase,
                          false);
        QApplication::sendEvent(surface, &event);
    }
    /// A press and its release, as the window system made them of what a device did.
    void clickFrom(QInputDevice::DeviceType type, Qt::MouseEventSource source,
                   Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers modifiers = {}) {
        const QPointingDevice device(QStringLiteral("test"), 1, type, QPointingDevice::PointerType::Generic,
                                     QInputDevice::Capability::Position, 1, 3);
        const QPointF local(20, 20), global = surface->mapToGlobal(local);
        QMouseEvent press(QEvent::MouseButtonPress, local, global, global, button, button, modifiers, source,
                          &device);
        QApplication::sendEvent(surface, &press);
    }

    TrackpadSurface* surface = nullptr;
};

TEST_F(TrackpadPageTest, fingersFillTheSurface) {
    EXPECT_TRUE(has("Trackpad surface, 0 percent touched"));
    for (int i = 0; i < 39; ++i)
        controls->touch({cell(i)});
    EXPECT_TRUE(has("Trackpad surface, 97 percent touched")) << "truncated";
    EXPECT_EQ(chip("Whole surface"), QStringLiteral("seen"));
    EXPECT_TRUE(shown("Still to do: click, secondary click, two-finger scroll"));
    EXPECT_TRUE(shown("Most fingers at once: 1"));
    controls->touch({cell(0), cell(1), cell(2)});
    controls->touch({});
    EXPECT_TRUE(shown("Most fingers at once: 3"));
    ASSERT_TRUE(press("Clear"));
    EXPECT_EQ(trackpad(), TrackpadTest());
    EXPECT_TRUE(has("Trackpad surface, 0 percent touched"));
    EXPECT_EQ(chip("Whole surface"), QStringLiteral("not yet"));
}

TEST_F(TrackpadPageTest, oddPositionsLandInsideOrNowhere) {
    controls->touch({{1, 1}});
    controls->touch({{0, 0}});
    EXPECT_THAT(trackpad().touched, ElementsAre(0, 39));
    controls->touch({{nan, 0.5}, {0.5, nan}});
    EXPECT_THAT(trackpad().touched, ElementsAre(0, 39));
    EXPECT_EQ(trackpad().maxFingers, 1) << "what has no position is no finger";
    constexpr double infinity = std::numeric_limits<double>::infinity();
    controls->touch({{-3, 7}, {1e300, -1e300}, {infinity, -infinity}});
    EXPECT_THAT(trackpad().touched, ElementsAre(0, 7, 32, 39));
    controls->touch(std::vector<FingerPosition>(100, {0.5, 0.5}));
    EXPECT_EQ(trackpad().maxFingers, 100);
}

TEST_F(TrackpadPageTest, aFingerAtRestSavesNothing) {
    controls->touch({cell(3)});
    pass(std::chrono::seconds(2));
    const auto writes = controls->defaultsWrites();
    for (int i = 0; i < 5; ++i)
        controls->touch({cell(3)});
    controls->touch({});
    pass(std::chrono::seconds(2));
    EXPECT_EQ(controls->defaultsWrites(), writes);
}

TEST_F(TrackpadPageTest, everyGestureTicksItsOwnStep) {
    const struct {
        const char* word;
        const char* step;
    } cases[] = {{"click", "Click"},
                 {"secondary", "Secondary click"},
                 {"scroll", "Two-finger scroll"},
                 {"force", "Force Click"},
                 {"zoom", "Pinch"}};
    for (const auto& [word, step] : cases) {
        EXPECT_EQ(chip(step), QStringLiteral("not yet"));
        controls->gesture(word);
        EXPECT_EQ(chip(step), QStringLiteral("seen")) << step;
    }
    TrackpadTest before = trackpad();
    controls->gesture("tap");
    EXPECT_EQ(trackpad(), before);
}

TEST_F(TrackpadPageTest, clicksCountByTheirButtonAndControl) {
    using Type = QInputDevice::DeviceType;
    // Clicks that the window system made of a finger on a screen, or of a pen, are none of the trackpad.
    clickFrom(Type::TouchScreen, Qt::MouseEventSynthesizedBySystem);
    clickFrom(Type::TouchScreen, Qt::MouseEventNotSynthesized);
    clickFrom(Type::Stylus, Qt::MouseEventNotSynthesized);
    clickFrom(Type::Mouse, Qt::MouseEventNotSynthesized, Qt::MiddleButton);
    EXPECT_EQ(trackpad(), TrackpadTest());
    QTest::mouseClick(surface, Qt::LeftButton, Qt::ControlModifier);
    EXPECT_TRUE(trackpad().secondaryClicked);
    EXPECT_FALSE(trackpad().clicked);
    ASSERT_TRUE(press("Clear"));
    QTest::mouseClick(surface, Qt::RightButton);
    EXPECT_TRUE(trackpad().secondaryClicked);
    EXPECT_FALSE(trackpad().clicked);
    QTest::mouseClick(surface, Qt::LeftButton);
    EXPECT_TRUE(trackpad().clicked);
}

TEST_F(TrackpadPageTest, thePointerIsNoFinger) {
    QTest::mouseMove(surface, QPoint(5, 5));
    QTest::mouseMove(surface, QPoint(200, 100));
    QTest::mouseClick(surface, Qt::LeftButton, {}, QPoint(200, 100));
    EXPECT_THAT(trackpad().touched, IsEmpty());
    EXPECT_EQ(trackpad().maxFingers, 0);
}

TEST_F(TrackpadPageTest, onlyPreciseScrollingWithAPhaseScrolls) {
    wheel({}, {0, 120}, Qt::NoScrollPhase);
    wheel({0, 12}, {0, 120}, Qt::NoScrollPhase);
    wheel({}, {0, 120}, Qt::ScrollUpdate);
    EXPECT_FALSE(trackpad().scrolled);
    wheel({0, 12}, {0, 24}, Qt::ScrollMomentum);
    EXPECT_TRUE(trackpad().scrolled);
}

TEST_F(TrackpadPageTest, theWindowSystemsPinchZoomsAndItsOtherGesturesDoNot) {
    const auto gesture = [this](Qt::NativeGestureType type) {
        const QPointF middle = surface->rect().center();
        QNativeGestureEvent event(type, QPointingDevice::primaryPointingDevice(), 2, middle, middle,
                                  surface->mapToGlobal(middle), 0.1, {});
        QApplication::sendEvent(surface, &event);
    };
    gesture(Qt::RotateNativeGesture);
    EXPECT_FALSE(trackpad().zoomed);
    gesture(Qt::ZoomNativeGesture);
    EXPECT_TRUE(trackpad().zoomed);
}

TEST_F(TrackpadPageTest, touchesCountFromATouchpadNeverFromAScreen) {
    std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice(QInputDevice::DeviceType::TouchScreen));
    QTest::touchEvent(surface, screen.get()).press(0, QPoint(40, 40), surface);
    QTest::touchEvent(surface, screen.get()).release(0, QPoint(40, 40), surface);
    EXPECT_EQ(trackpad(), TrackpadTest());
    std::unique_ptr<QPointingDevice> pad(QTest::createTouchDevice(QInputDevice::DeviceType::TouchPad));
    QTest::touchEvent(surface, pad.get()).press(0, QPoint(40, 40), surface).press(1, QPoint(80, 40), surface);
    EXPECT_EQ(trackpad().maxFingers, 2);
    EXPECT_FALSE(trackpad().touched.empty());
    QTest::touchEvent(surface, pad.get())
        .release(0, QPoint(40, 40), surface)
        .release(1, QPoint(80, 40), surface);
}

TEST_F(TrackpadPageTest, thePlatformIsListenedToOnlyWhileThePageShows) {
    EXPECT_TRUE(controls->trackpadIsWatched());
    view->hide();
    EXPECT_FALSE(controls->trackpadIsWatched());
    view->show();
    EXPECT_TRUE(controls->trackpadIsWatched());
    close();
    EXPECT_FALSE(controls->trackpadIsWatched());
}

TEST(TrackpadArea, rowZeroIsAtTheTopAndColumnZeroAtTheLeft) {
    const QSizeF area(540, 338);
    EXPECT_EQ(TrackpadArea::cellRect(area, 0, 0).topLeft(), QPointF(10, 10));
    const QRectF last = TrackpadArea::cellRect(area, 7, 4);
    EXPECT_NEAR(last.right(), 530, 1e-9);
    EXPECT_NEAR(last.bottom(), 328, 1e-9);
    EXPECT_NEAR(TrackpadArea::cellRect(area, 1, 0).left() - TrackpadArea::cellRect(area, 0, 0).right(), 3,
                1e-9);
}

} // namespace
} // namespace tessivo::pagetest

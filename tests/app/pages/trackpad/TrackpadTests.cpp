#include "app/pages/trackpad/TrackpadArea.h"
#include "app/pages/trackpad/TrackpadSurface.h"
#include "tests/app/pages/InputPages.h"

#include <QNativeGestureEvent>
#include <QPointingDevice>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <limits>

namespace tessivo::pagetest {
namespace {

using Type = QInputDevice::DeviceType;
using Limits = std::numeric_limits<double>;

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
        pointAt({200, 100});
    }
    void pointAt(QPoint place) {
        // A first move may only enter the window.
        QTest::mouseMove(surface, place);
        QTest::mouseMove(surface, place + QPoint(4, 4));
        settle();
    }
    const TrackpadTest& trackpad() const { return state().trackpad; }

    TrackpadSurface* surface = nullptr;
};

TEST_F(TrackpadPageTest, fingersFillTheSurface) {
    EXPECT_TRUE(has("Trackpad surface, 0 percent touched"));
    for (int i = 0; i < 39; ++i)
        controls->touch({cell(i)});
    EXPECT_TRUE(has("Trackpad surface, 97 percent touched")) << "truncated";
    EXPECT_EQ(value("Whole surface"), QStringLiteral("seen"));
    EXPECT_TRUE(shown("Still to do: click, secondary click, two-finger scroll"));
    EXPECT_TRUE(shown("Most fingers at once: 1"));
    controls->touch({cell(0), cell(1), cell(2)});
    controls->touch({});
    EXPECT_TRUE(shown("Most fingers at once: 3"));
    pass(std::chrono::seconds(2));
    const auto writes = controls->defaultsWrites();
    controls->touch({cell(3)});
    pass(std::chrono::seconds(2));
    EXPECT_EQ(controls->defaultsWrites(), writes) << "a finger at rest saves nothing";
    ASSERT_TRUE(press("Clear"));
    EXPECT_EQ(trackpad(), TrackpadTest());
    EXPECT_TRUE(has("Trackpad surface, 0 percent touched"));
    EXPECT_EQ(value("Whole surface"), QStringLiteral("not yet"));
}

TEST_F(TrackpadPageTest, oddPositionsLandInsideOrNowhere) {
    const double nan = Limits::quiet_NaN(), infinity = Limits::infinity();
    controls->touch({{1, 1}});
    controls->touch({{nan, 0.5}, {0.5, nan}, {0, 0}});
    EXPECT_THAT(trackpad().touched, ElementsAre(0, 39));
    EXPECT_EQ(trackpad().maxFingers, 1) << "what has no position is no finger";
    controls->touch({{-3, 7}, {1e300, -1e300}, {infinity, -infinity}});
    EXPECT_THAT(trackpad().touched, ElementsAre(0, 7, 32, 39));
    controls->touch(std::vector<FingerPosition>(100, {0.5, 0.5}));
    EXPECT_EQ(trackpad().maxFingers, 100);
}

TEST_F(TrackpadPageTest, everyGestureTicksItsOwnStep) {
    const std::pair<Gesture, const char*> cases[] = {{Gesture::click, "Click"},
                                                     {Gesture::secondary, "Secondary click"},
                                                     {Gesture::scroll, "Two-finger scroll"},
                                                     {Gesture::force, "Force Click"},
                                                     {Gesture::zoom, "Pinch"}};
    for (const auto& [gesture, step] : cases) {
        EXPECT_EQ(value(step), QStringLiteral("not yet"));
        controls->gesture(gesture);
        EXPECT_EQ(value(step), QStringLiteral("seen")) << step;
    }
}

TEST_F(TrackpadPageTest, clicksCountByTheirButtonAndControl) {
    // Clicks that the window system made of a finger on a screen, or of a pen, are none of the trackpad.
    const std::tuple<Type, Qt::MouseEventSource, Qt::MouseButton> none[] = {
        {Type::TouchScreen, Qt::MouseEventSynthesizedBySystem, Qt::LeftButton},
        {Type::TouchScreen, Qt::MouseEventNotSynthesized, Qt::LeftButton},
        {Type::Stylus, Qt::MouseEventNotSynthesized, Qt::LeftButton},
        {Type::Mouse, Qt::MouseEventNotSynthesized, Qt::MiddleButton}};
    for (const auto& [type, source, button] : none) {
        const QPointingDevice device(QStringLiteral("test"), 1, type, QPointingDevice::PointerType::Generic,
                                     QInputDevice::Capability::Position, 1, 3);
        const QPointF at = surface->mapToGlobal(QPointF(20, 20));
        QMouseEvent press(QEvent::MouseButtonPress, {20, 20}, at, at, button, button, {}, source, &device);
        QApplication::sendEvent(surface, &press);
        EXPECT_EQ(trackpad(), TrackpadTest());
    }
    const std::tuple<Qt::MouseButton, Qt::KeyboardModifier, bool> counted[] = {
        {Qt::LeftButton, Qt::ControlModifier, true},
        {Qt::RightButton, Qt::NoModifier, true},
        {Qt::LeftButton, Qt::NoModifier, false}};
    for (const auto& [button, modifier, secondary] : counted) {
        ASSERT_TRUE(press("Clear"));
        QTest::mouseMove(surface, QPoint(200, 100));
        QTest::mouseClick(surface, button, modifier);
        EXPECT_EQ(trackpad().secondaryClicked, secondary);
        EXPECT_EQ(trackpad().clicked, !secondary);
        EXPECT_TRUE(trackpad().touched.empty() && trackpad().maxFingers == 0) << "the pointer is no finger";
    }
}

TEST_F(TrackpadPageTest, onlyPreciseScrollingWithAPhaseScrollsAndOnlyAPinchZooms) {
    const auto wheel = [this](QPoint pixels, QPoint angle, Qt::ScrollPhase phase) {
        QWheelEvent event(QPointF(5, 5), surface->mapToGlobal(QPointF(5, 5)), pixels, angle, {}, {}, phase,
                          false);
        QApplication::sendEvent(surface, &event);
    };
    const auto gesture = [this](Qt::NativeGestureType type) {
        const QPointF middle = surface->rect().center();
        QNativeGestureEvent event(type, QPointingDevice::primaryPointingDevice(), 2, middle, middle,
                                  surface->mapToGlobal(middle), 0.1, {});
        QApplication::sendEvent(surface, &event);
    };
    wheel({}, {0, 120}, Qt::NoScrollPhase);
    wheel({0, 12}, {0, 120}, Qt::NoScrollPhase);
    wheel({}, {0, 120}, Qt::ScrollUpdate);
    gesture(Qt::RotateNativeGesture);
    EXPECT_EQ(trackpad(), TrackpadTest());
    wheel({0, 12}, {0, 24}, Qt::ScrollMomentum);
    gesture(Qt::ZoomNativeGesture);
    EXPECT_TRUE(trackpad().scrolled && trackpad().zoomed);
}

TEST_F(TrackpadPageTest, touchesCountFromATouchpadNeverFromAScreen) {
    for (const bool pad : {false, true}) {
        const std::unique_ptr<QPointingDevice> device(
            QTest::createTouchDevice(pad ? Type::TouchPad : Type::TouchScreen));
        const QPoint one(40, 40), two(80, 40);
        QTest::touchEvent(surface, device.get()).press(0, one, surface).press(1, two, surface);
        EXPECT_EQ(trackpad().maxFingers, pad ? 2 : 0);
        EXPECT_EQ(trackpad().touched.empty(), !pad);
        QTest::touchEvent(surface, device.get()).release(0, one, surface).release(1, two, surface);
    }
}

TEST_F(TrackpadPageTest, aTouchCountsFromItsBeginningOverTheSurfaceToItsLift) {
    constexpr std::int64_t resting = 1, working = 2;
    const auto finger = [](int number, std::int64_t touch) {
        return FingerPosition{cell(number).x, cell(number).y, touch};
    };
    const QPoint over(200, 100), beside(-60, 100);
    pointAt(beside);
    controls->touch({finger(0, resting)});
    for (const Gesture gesture : {Gesture::scroll, Gesture::zoom, Gesture::force})
        controls->gesture(gesture);
    pointAt(over);
    controls->touch({finger(1, resting)});
    EXPECT_EQ(trackpad(), TrackpadTest()) << "it began beside the surface";
    controls->touch({finger(1, resting), finger(2, working)});
    pointAt(beside);
    controls->touch({finger(1, resting), finger(3, working)});
    EXPECT_THAT(trackpad().touched, ElementsAre(2, 3)) << "the pointer moves while a finger slides";
    EXPECT_EQ(trackpad().maxFingers, 1);
    controls->touch({finger(1, resting)});
    controls->touch({finger(1, resting), finger(4, working)});
    EXPECT_THAT(trackpad().touched, ElementsAre(2, 3)) << "a new touch, begun beside it";

    pointAt(over);
    controls->touch({});
    QWidget other;
    showAt(other, {100, 100});
    controls->touch({finger(5, working)});
    controls->gesture(Gesture::scroll);
    view->activateWindow();
    QApplication::processEvents();
    controls->touch({finger(6, working)});
    EXPECT_THAT(trackpad().touched, ElementsAre(2, 3)) << "it began in another window";
    EXPECT_FALSE(trackpad().scrolled);
    controls->touch({});
    controls->touch({finger(7, working)});
    controls->gesture(Gesture::scroll);
    EXPECT_THAT(trackpad().touched, ElementsAre(2, 3, 7));
    EXPECT_TRUE(trackpad().scrolled);

    pointAt(beside);
    controls->touch({});
    controls->setTouchesAimed(true);
    controls->touch({finger(8, working)});
    EXPECT_TRUE(trackpad().touched.contains(8)) << "from a source that knows whom it is for";
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

TEST_F(TrackpadPageTest, thePlatformKnowsWhereTheVisiblePartOfTheSurfaceIs) {
    auto* scroller = qobject_cast<QScrollArea*>(view.get());
    ASSERT_TRUE(scroller);
    const auto visible = [&] {
        const QWidget& port = *scroller->viewport();
        return QRect(surface->mapTo(view.get(), QPoint()), surface->size()) &
               QRect(port.mapTo(view.get(), QPoint()), port.size());
    };
    EXPECT_EQ(controls->trackpadPlace(), visible());
    view->resize(view->width(), 300);
    settle();
    const QRect cut = controls->trackpadPlace();
    EXPECT_EQ(cut, visible());
    EXPECT_LT(cut.height(), surface->height());
    for (const int by : {60, 1'000'000}) {
        scroller->verticalScrollBar()->setValue(by);
        EXPECT_EQ(controls->trackpadPlace(), visible()) << "it moves with what it stands in";
        EXPECT_NE(controls->trackpadPlace(), cut);
    }
    view->resize(view->width(), 80);
    settle();
    scroller->verticalScrollBar()->setValue(1'000'000);
    EXPECT_TRUE(controls->trackpadPlace().isEmpty()) << "scrolled away";
    view->resize(view->width(), 300);
    scroller->verticalScrollBar()->setValue(0);
    settle();
    EXPECT_EQ(controls->trackpadPlace(), cut);
    view->hide();
    settle();
    view->show();
    settle();
    EXPECT_EQ(controls->trackpadPlace(), cut);
}

TEST(TrackpadArea, rowZeroIsAtTheTopAndColumnZeroAtTheLeft) {
    const QSizeF area(540, 338);
    const QRectF first = TrackpadArea::cellRect(area, 0, 0), last = TrackpadArea::cellRect(area, 7, 4);
    EXPECT_EQ(first.topLeft(), QPointF(10, 10));
    EXPECT_EQ(last.bottomRight(), QPointF(530, 328));
    EXPECT_NEAR(TrackpadArea::cellRect(area, 1, 0).left() - first.right(), 3, 1e-9);
}

} // namespace
} // namespace tessivo::pagetest

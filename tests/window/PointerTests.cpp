#include "tests/window/PageWindow.h"

#include <QApplication>
#include <QScreen>

namespace tessivo::windowtest {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DisplayWindow : public PageWindow {
protected:
    void SetUp() override { open(Page::display); }
    static QWidget* colors() {
        for (QWidget* each : QApplication::topLevelWidgets())
            if (each->isVisible() && (each->windowFlags() & Qt::WindowStaysOnTopHint)) return each;
        return nullptr;
    }
};

TEST_F(DisplayWindow, realKeysAndClicksStepOverTheWholeScreen) {
    // Return, the default action.
    ASSERT_TRUE(key(QStringLiteral("Return")));
    ASSERT_TRUE(eventually([] { return colors() != nullptr; }));
    ASSERT_TRUE(QTest::qWaitForWindowActive(colors(), 20'000));
    EXPECT_TRUE(
        eventually([] { return colors()->geometry() == QGuiApplication::primaryScreen()->geometry(); }));
    // Any pixel of the real screen, also where the window manager might have kept a border.
    const auto showing = [](const QColor& color) {
        return eventually([&] {
            const QImage screen = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
            const int right = screen.width() - 1, bottom = screen.height() - 1;
            for (const QPoint at : {QPoint(0, 0), QPoint(right, 0), QPoint(0, bottom), QPoint(right, bottom)})
                if (screen.pixelColor(at) != color) return false;
            return true;
        });
    };
    EXPECT_TRUE(showing(Qt::black));
    const QColor red(255, 0, 0);
    const std::pair<const char*, QColor> steps[] = {
        {"space", Qt::white}, {"Right", red}, {"Left", Qt::white}};
    for (const auto& [name, color] : steps) {
        ASSERT_TRUE(key(QString::fromLatin1(name)));
        EXPECT_TRUE(showing(color)) << name;
    }
    ASSERT_TRUE(key(QStringLiteral("ctrl+q")));
    ASSERT_TRUE(key(QStringLiteral("x")));
    ASSERT_TRUE(clickWith(colors()));
    EXPECT_TRUE(showing(red));
    ASSERT_TRUE(key(QStringLiteral("Escape")));
    EXPECT_TRUE(eventually([] { return !colors(); }));
    EXPECT_EQ(state().display.shown.size(), 3u);
    EXPECT_EQ(quits, 0);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window, 20'000)) << "the keyboard goes back to the page";
}

class TrackpadWindow : public PageWindow {
protected:
    void SetUp() override { open(Page::trackpad); }
    QWidget* surface() {
        for (QWidget* each : window.findChildren<QWidget*>())
            if (each->accessibleName() == QStringLiteral("Trackpad test area")) return each;
        return nullptr;
    }
};

TEST_F(TrackpadWindow, aMouseClicksButNeitherTouchesNorScrolls) {
    // Fingers count over the surface, and nowhere else.
    const auto touch = [this](double x) {
        controls.touch({{x, 0}});
        controls.touch({});
    };
    ASSERT_TRUE(clickWith(surface(), 4)); // the wheel
    {
        Bystander other;
        ASSERT_TRUE(eventually([] { return QGuiApplication::applicationState() != Qt::ApplicationActive; }));
        touch(0);
    }
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window, 20'000));
    ASSERT_TRUE(eventually([this] { return surface()->underMouse(); }));
    touch(0.2);
    EXPECT_THAT(state().trackpad.touched, ElementsAre(1));
    ASSERT_TRUE(clickWith(button(QStringLiteral("Clear"))));
    touch(0.4);
    EXPECT_EQ(state().trackpad, TrackpadTest()) << "the pointer is beside the surface";
    ASSERT_TRUE(clickWith(surface(), 4)); // the wheel
    ASSERT_TRUE(clickWith(surface(), 5));
    settle();
    EXPECT_EQ(state().trackpad, TrackpadTest());
    ASSERT_TRUE(clickWith(surface(), 3));
    EXPECT_TRUE(eventually([this] { return state().trackpad.secondaryClicked; }));
    EXPECT_FALSE(state().trackpad.clicked);
    ASSERT_TRUE(clickWith(surface(), 1));
    EXPECT_TRUE(eventually([this] { return state().trackpad.clicked; }));
    ASSERT_TRUE(xdotool({QStringLiteral("mousemove_relative"), QStringLiteral("60"), QStringLiteral("30")}));
    settle();
    EXPECT_THAT(state().trackpad.touched, IsEmpty());
    EXPECT_FALSE(state().trackpad.scrolled);
}

} // namespace
} // namespace tessivo::windowtest

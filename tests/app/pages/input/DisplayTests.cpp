#include "app/controls/Button.h"
#include "app/pages/display/DisplayTestView.h"
#include "tests/app/pages/input/InputPages.h"

#include <QPointer>
#include <QScreen>
#include <QTest>

namespace tessivo::pagetest {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

class DisplayPageTest : public InputFixture {
protected:
    void SetUp() override {
        InputFixture::SetUp();
        open(Page::display);
    }
    void TearDown() override {
        close();
        settle();
    }
    const DisplayTest& display() const { return state().display; }
    QString value(const char* color) {
        return accessibleValueOf(findByName<QWidget>(view.get(), QString::fromUtf8(color)));
    }
    /// The window over the screen, or null.
    static QWidget* colors() {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->isVisible() && (window->windowFlags() & Qt::WindowStaysOnTopHint)) return window;
        return nullptr;
    }
    static QColor centre() { return colors()->grab().toImage().pixelColor(colors()->rect().center()); }
    static bool showsHint() {
        // White words just above the hint's lower edge, on the black of the first colour.
        const QImage image = colors()->grab().toImage();
        for (int y = image.height() * 3 / 4; y < image.height() * 0.88; ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y).lightness() > 200) return true;
        return false;
    }
    void show() {
        ASSERT_TRUE(press("Show Colors Full Screen"));
        ASSERT_TRUE(colors());
    }
};

TEST_F(DisplayPageTest, everyColorIsShownOverTheWholeScreenInOrder) {
    EXPECT_EQ(value("Black"), QStringLiteral("not shown yet"));
    show();
    EXPECT_EQ(colors()->geometry(), QGuiApplication::primaryScreen()->geometry());
    EXPECT_EQ(display().screenName, QGuiApplication::primaryScreen()->name().toStdString());
    const QColor expected[] = {Qt::black, Qt::white, QColor(255, 0, 0), QColor(0, 255, 0), QColor(0, 0, 255)};
    for (const QColor& color : expected) {
        EXPECT_EQ(centre(), color);
        strike(Scan::space, colors());
    }
    EXPECT_NEAR(centre().red(), 128, 1);
    EXPECT_TRUE(centre().red() == centre().green() && centre().green() == centre().blue());
    EXPECT_TRUE(display().allShown());
    strike(Scan::returnKey, colors());
    EXPECT_FALSE(colors()) << "past the last colour the run ends";
    EXPECT_EQ(value("Gray"), QStringLiteral("shown"));
    EXPECT_TRUE(shown("Colors shown; answer what you saw"));
}

TEST_F(DisplayPageTest, keysAndClicksStep) {
    show();
    strike(Scan::left, colors());
    EXPECT_EQ(colors()->windowTitle(), QStringLiteral("Black")) << "stays on the first";
    strike(Scan::right, colors());
    QTest::mouseClick(colors(), Qt::LeftButton);
    QTest::mouseClick(colors(), Qt::RightButton);
    strike(Scan::a, colors());
    strike(Scan::unknown, colors());
    send(QEvent::KeyPress, Scan::space, true, {}, colors());
    EXPECT_EQ(colors()->windowTitle(), QStringLiteral("Red"));
    strike(Scan::left, colors());
    EXPECT_EQ(colors()->windowTitle(), QStringLiteral("White"));
    strike(Scan::right, colors());
    strike(Scan::escape, colors());
    EXPECT_FALSE(colors());
    EXPECT_THAT(display().shown, UnorderedElementsAre("Black", "White", "Red"));
    show();
    EXPECT_EQ(colors()->windowTitle(), QStringLiteral("Black")) << "the next run starts again";
    EXPECT_EQ(display().shown.size(), 3u);
}

TEST_F(DisplayPageTest, theHintGoesAfterThreeSecondsOrTheFirstStep) {
    show();
    EXPECT_TRUE(showsHint());
    pass(std::chrono::milliseconds(2999));
    EXPECT_TRUE(showsHint());
    pass(std::chrono::milliseconds(1));
    EXPECT_FALSE(showsHint());
    strike(Scan::escape, colors());
    show();
    EXPECT_TRUE(showsHint());
    strike(Scan::left, colors());
    EXPECT_FALSE(showsHint()) << "any step, also one that stays";
    strike(Scan::escape, colors());
    pass(std::chrono::seconds(5));
}

TEST_F(DisplayPageTest, thePointerIsHiddenUntilItMoves) {
    show();
    EXPECT_EQ(colors()->cursor().shape(), Qt::BlankCursor);
    const auto move = [](QPointF to) {
        QMouseEvent event(QEvent::MouseMove, to, to, Qt::NoButton, Qt::NoButton, {});
        QApplication::sendEvent(colors(), &event);
    };
    move(QCursor::pos());
    EXPECT_EQ(colors()->cursor().shape(), Qt::BlankCursor) << "told where it is, not that it moved";
    move(QCursor::pos() + QPoint(3, 0));
    EXPECT_EQ(colors()->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(DisplayPageTest, aRunEndsWithItsScreenItsWindowOrItsPage) {
    show();
    Q_EMIT qApp->screenRemoved(QGuiApplication::primaryScreen());
    EXPECT_FALSE(colors());
    settle();
    show();
    colors()->close();
    EXPECT_FALSE(colors());
    settle();
    show();
    const QPointer<QWidget> window = colors();
    view->hide();
    EXPECT_FALSE(colors());
    view->show();
    show();
    QPointer<QWidget> last = colors();
    close();
    EXPECT_FALSE(colors());
    // What the window system still had for it concerns nobody.
    if (last) strike(Scan::space, last);
    settle();
    EXPECT_TRUE(last.isNull());
    EXPECT_TRUE(window.isNull());
}

TEST_F(DisplayPageTest, severalScreensAreChosenByName) {
    EXPECT_FALSE(picker("On")) << "one screen shows no picker";
    QScreen* const screen = QGuiApplication::primaryScreen();
    QList<QScreen*> screens = {screen, screen, screen};
    auto* content = new DisplayTestView({*model, dialogs}, [&screens] { return screens; });
    close();
    view.reset(content);
    showAt(*view, QSize(900, 700));
    auto* on = picker("On");
    ASSERT_TRUE(on);
    EXPECT_EQ(on->count(), 3);
    on->setCurrentIndex(2);
    Q_EMIT on->activated(2);

    screens = {screen, screen};
    Q_EMIT qApp->screenAdded(screen);
    EXPECT_EQ(on->currentIndex(), 1) << "past the end is the last one";
    screens = {screen, screen, screen};
    Q_EMIT qApp->primaryScreenChanged(screen);
    EXPECT_EQ(on->count(), 3) << "another order, other names at the same places";
    EXPECT_EQ(on->currentIndex(), 2);
    screens = {screen, screen};
    show();
    strike(Scan::escape, colors());
    screens.clear();
    const DisplayTest before = display();
    ASSERT_TRUE(press("Show Colors Full Screen"));
    EXPECT_FALSE(colors());
    EXPECT_EQ(display(), before);
}

TEST_F(DisplayPageTest, theAnswerAsksWhereTheDotsAre) {
    const char* const where = "Describe where in the note below, so a buyer knows what to expect.";
    EXPECT_FALSE(shown(where));
    ASSERT_TRUE(press("Yes, I saw some"));
    EXPECT_EQ(display().answer, ManualAnswer::problem);
    EXPECT_TRUE(shown(where));
    EXPECT_TRUE(shown("Dead or stuck pixels seen"));
    ASSERT_TRUE(press("Yes, I saw some"));
    EXPECT_EQ(display().answer, ManualAnswer::unanswered);
    ASSERT_TRUE(press("None seen"));
    EXPECT_FALSE(shown(where));
    EXPECT_TRUE(shown("No dead or stuck pixels seen"));
}

TEST(ColorRun, stepsThroughTheListAndEndsPastIt) {
    ColorRun run;
    EXPECT_TRUE(run.advance(-1));
    EXPECT_TRUE(run.advance(-5));
    EXPECT_EQ(run.name(), "Black");
    for (int i = 1; i < 6; ++i)
        ASSERT_TRUE(run.advance(1));
    EXPECT_EQ(run.name(), "Gray");
    EXPECT_FALSE(run.advance(1));
    EXPECT_EQ(run.name(), "Gray");
}

TEST(ColorRun, theHintStaysOnAnyScreen) {
    const QSizeF hint(480, 70);
    EXPECT_EQ(hintPlace({1000, 1000}, hint), QRectF(260, 810, 480, 70));
    for (const QSizeF screen : {QSizeF(1, 1), QSizeF(100, 40), QSizeF(16'000, 16'000)})
        EXPECT_TRUE(QRectF(QPointF(), screen).contains(hintPlace(screen, hint)));
}

} // namespace
} // namespace tessivo::pagetest

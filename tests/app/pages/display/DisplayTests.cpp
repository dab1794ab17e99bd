#include "app/look/Theme.h"
#include "app/pages/display/ColorSwatch.h"
#include "app/pages/display/DisplayTestView.h"
#include "tests/app/pages/InputPages.h"

#include <QLineEdit>
#include <QPointer>
#include <QScreen>
#include <QTest>

namespace tessivo::pagetest {
namespace {

using namespace std::chrono_literals;

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
    /// The window over the screen, or null.
    static QWidget* colors() {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->isVisible() && (window->windowFlags() & Qt::WindowStaysOnTopHint)) return window;
        return nullptr;
    }
    static QString color() { return colors()->windowTitle(); }
    static void strike(quint32 scanCode) { InputFixture::strike(scanCode, colors()); }
    static bool showsHint() {
        // White words just above the hint's lower edge, on the black of the first colour.
        const QImage image = colors()->grab().toImage();
        for (int y = image.height() * 3 / 4; y < image.height() * 0.88; ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y).lightness() > 200) return true;
        return false;
    }
    /// The colour of the filled mark under a swatch's name.
    std::optional<ColorRole> markOf(const char* name) {
        auto* swatch = findByName<ColorSwatch>(view.get(), QString::fromUtf8(name));
        const QImage image = swatch->grab().toImage();
        for (const ColorRole role : {ColorRole::greenGlyph, ColorRole::grayGlyph})
            for (int x = 0; x < 8; ++x)
                if (image.pixelColor(x, image.height() - 7) == theme().color(role)) return role;
        return std::nullopt;
    }
    void show() {
        ASSERT_TRUE(press("Show Colors Full Screen"));
        ASSERT_TRUE(colors());
    }
};

TEST_F(DisplayPageTest, everyColorIsShownOverTheWholeScreenInOrder) {
    EXPECT_EQ(value("Black"), QStringLiteral("not shown yet"));
    EXPECT_EQ(markOf("Black"), ColorRole::grayGlyph);
    show();
    EXPECT_EQ(colors()->geometry(), QGuiApplication::primaryScreen()->geometry());
    EXPECT_EQ(display().screenName, QGuiApplication::primaryScreen()->name().toStdString());
    const QRgb expected[] = {0xFF000000, 0xFFFFFFFF, 0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFF808080};
    for (const QRgb rgb : expected) {
        EXPECT_EQ(colors()->grab().toImage().pixel(colors()->rect().center()), rgb);
        strike(Scan::space);
    }
    EXPECT_FALSE(colors()) << "past the last colour the run ends";
    EXPECT_EQ(value("Gray"), QStringLiteral("shown"));
    EXPECT_EQ(markOf("Gray"), ColorRole::greenGlyph);
    EXPECT_TRUE(shown("Colors shown; answer what you saw"));
}

TEST_F(DisplayPageTest, keysAndClicksStep) {
    show();
    strike(Scan::left);
    EXPECT_EQ(color(), QStringLiteral("Black")) << "stays on the first";
    strike(Scan::returnKey);
    QTest::mouseClick(colors(), Qt::LeftButton);
    QTest::mouseClick(colors(), Qt::RightButton);
    strike(Scan::a);
    strike(Scan::unknown);
    send(QEvent::KeyPress, Scan::space, colors(), true);
    EXPECT_EQ(color(), QStringLiteral("Red"));
    strike(Scan::left);
    EXPECT_EQ(color(), QStringLiteral("White"));
    strike(Scan::right);
    strike(Scan::escape);
    EXPECT_FALSE(colors());
    EXPECT_THAT(display().shown, UnorderedElementsAre("Black", "White", "Red"));
    show();
    EXPECT_EQ(color(), QStringLiteral("Black")) << "the next run starts again";
    EXPECT_EQ(display().shown.size(), 3u);
}

TEST_F(DisplayPageTest, theHintGoesAfterThreeSecondsOrTheFirstStep) {
    show();
    pass(2999ms);
    EXPECT_TRUE(showsHint());
    pass(1ms);
    EXPECT_FALSE(showsHint());
    strike(Scan::escape);
    show();
    EXPECT_TRUE(showsHint());
    strike(Scan::left);
    EXPECT_FALSE(showsHint()) << "any step, also one that stays";
    strike(Scan::escape);
    pass(5s);
}

TEST_F(DisplayPageTest, thePointerIsHiddenUntilItMoves) {
    show();
    for (const int by : {0, 3}) {
        const QPointF to = QCursor::pos() + QPoint(by, 0);
        QMouseEvent event(QEvent::MouseMove, to, to, Qt::NoButton, Qt::NoButton, {});
        QApplication::sendEvent(colors(), &event);
        EXPECT_EQ(colors()->cursor().shape(), by == 0 ? Qt::BlankCursor : Qt::ArrowCursor);
    }
}

TEST_F(DisplayPageTest, aRunEndsWithItsScreenItsWindowOrItsPage) {
    const std::function<void()> ends[] = {
        [] { Q_EMIT qApp->screenRemoved(QGuiApplication::primaryScreen()); }, [] { colors()->close(); },
        [this] { view->hide(); }, [this] { close(); }};
    for (const auto& end : ends) {
        view->show();
        show();
        const QPointer<QWidget> window = colors();
        end();
        EXPECT_FALSE(colors());
        // What the window system still had for it concerns nobody.
        ASSERT_TRUE(window);
        InputFixture::strike(Scan::space, window);
        settle();
        EXPECT_TRUE(window.isNull());
    }
}

TEST_F(DisplayPageTest, anotherWindowOfTheProgramKeepsItsKeys) {
    show();
    QLineEdit other;
    showAt(other, {100, 100});
    InputFixture::strike(Scan::space, &other);
    EXPECT_EQ(other.text(), QStringLiteral("a"));
    EXPECT_EQ(color(), QStringLiteral("Black"));
    colors()->activateWindow();
    settle();
    InputFixture::strike(Scan::space, &other);
    EXPECT_EQ(color(), QStringLiteral("White"));
    InputFixture::send(QEvent::KeyPress, Scan::escape, colors());
    EXPECT_FALSE(colors());
    InputFixture::send(QEvent::KeyRelease, Scan::escape, &other);
    InputFixture::strike(Scan::space, &other);
    EXPECT_EQ(other.text(), QStringLiteral("aa")) << "with the run its keys are the program's again";
}

TEST_F(DisplayPageTest, severalScreensAreChosenByName) {
    EXPECT_FALSE(picker("On")) << "one screen shows no picker";
    QScreen* const screen = QGuiApplication::primaryScreen();
    QList<QScreen*> screens(3, screen);
    close();
    view = std::make_unique<DisplayTestView>(PageContext{*model, dialogs}, [&screens] { return screens; });
    showAt(*view, QSize(900, 700));
    auto* on = picker("On");
    ASSERT_TRUE(on);
    on->setCurrentIndex(2);
    Q_EMIT on->activated(2);

    screens.removeLast();
    Q_EMIT qApp->screenAdded(screen);
    EXPECT_EQ(on->currentIndex(), 1) << "past the end is the last one";
    screens.append(screen);
    Q_EMIT qApp->primaryScreenChanged(screen);
    EXPECT_EQ(on->count(), 3) << "another order, other names at the same places";
    EXPECT_EQ(on->currentIndex(), 2);
    screens.removeLast();
    show();
    strike(Scan::escape);
    screens.clear();
    const DisplayTest before = display();
    ASSERT_TRUE(press("Show Colors Full Screen"));
    EXPECT_FALSE(colors());
    EXPECT_EQ(display(), before);
}

TEST_F(DisplayPageTest, theAnswerAsksWhereTheDotsAre) {
    const struct {
        const char* button;
        bool where;
        const char* summary;
    } steps[] = {{"Yes, I saw some", true, "Dead or stuck pixels seen"},
                 {"Yes, I saw some", false, "Not run"},
                 {"None seen", false, "No dead or stuck pixels seen"}};
    for (const auto& [button, where, summary] : steps) {
        ASSERT_TRUE(press(button));
        EXPECT_EQ(shown("Describe where in the note below, so a buyer knows what to expect."), where);
        EXPECT_TRUE(shown(summary)) << summary;
    }
}

TEST(ColorRun, theHintStaysOnAnyScreen) {
    const QSizeF hint(480, 70);
    EXPECT_EQ(hintPlace({1000, 1000}, hint), QRectF(260, 810, 480, 70));
    for (const QSizeF screen : {QSizeF(1, 1), QSizeF(100, 40), QSizeF(16'000, 16'000)})
        EXPECT_TRUE(QRectF(QPointF(), screen).contains(hintPlace(screen, hint)));
}

} // namespace
} // namespace tessivo::pagetest

#include "tests/app/PageTesting.h"

#include "app/look/Symbols.h"
#include "app/look/Theme.h"
#include "kit/vocabulary/TestID.h"
#include "kit/vocabulary/TestStatus.h"

#include <QApplication>
#include <QMenu>
#include <gtest/gtest.h>

#include <cmath>

namespace tessivo {
namespace {

using namespace tessivo::pagetest;

double luminance(const QColor& color) {
    const auto part = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const double a = luminance(one), b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QColor over(const QColor& tint, const QColor& ground) {
    const float a = tint.alphaF();
    return QColor::fromRgbF(tint.redF() * a + ground.redF() * (1 - a),
                            tint.greenF() * a + ground.greenF() * (1 - a),
                            tint.blueF() * a + ground.blueF() * (1 - a));
}

TEST(Look, menusAreDrawnInBothAppearances) {
    for (const bool dark : {false, true}) {
        const DesktopLook look(dark);
        QMenu menu;
        QAction* ansi = menu.addAction(QStringLiteral("US (ANSI)"));
        ansi->setCheckable(true);
        ansi->setChecked(true);
        menu.setActiveAction(menu.addAction(QStringLiteral("International (ISO)")));
        menu.addSeparator();
        menu.addAction(QStringLiteral("Print Report…"))->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_P));
        menu.popup({0, 0});
        settle();
        const QImage opened = menu.grab().toImage();
        EXPECT_EQ(opened.pixelColor(opened.width() / 2, 14).rgb(), theme().color(ColorRole::card).rgb());
        EXPECT_EQ(opened.height(), 5 + 28 + 28 + 11 + 28 + 5);
    }
}

TEST(Look, followsTheDesktopWhileRunning) {
    EXPECT_FALSE(theme().isDark());
    int told = 0;
    QObject listener;
    QObject::connect(&theme(), &Theme::changed, &listener, [&] { ++told; });
    const int line = theme().lineHeight(TextRole::body);
    {
        const DesktopLook dark(true);
        EXPECT_TRUE(theme().isDark());
        EXPECT_EQ(theme().color(ColorRole::card), QColor(0x27282E));
        // Also a desktop's own dark palette that isn't ours.
        QApplication::setPalette(QPalette(QColor(Qt::white), QColor(30, 30, 30)));
        EXPECT_TRUE(theme().isDark());
        EXPECT_EQ(told, 1);
    }
    EXPECT_FALSE(theme().isDark());
    EXPECT_EQ(told, 2);
    {
        const DesktopLook large(24.0);
        EXPECT_EQ(theme().lineHeight(TextRole::body), 2 * line);
        EXPECT_EQ(QApplication::font().pixelSize(), 26);
    }
    EXPECT_EQ(theme().lineHeight(TextRole::body), line);
    EXPECT_EQ(told, 4);
}

TEST(Look, wordsAndSymbolsCanBeRead) {
    struct Pair {
        ColorRole ink, ground;
        double least;
    };
    const Pair pairs[] = {
        {ColorRole::text1, ColorRole::controlPressed, 4.5},
        {ColorRole::text2, ColorRole::well, 4.5},
        {ColorRole::text3, ColorRole::sidebar, 4.5},
        {ColorRole::accent, ColorRole::sidebar, 4.5},
        {ColorRole::onAccent, ColorRole::accentFill, 4.5},
        {ColorRole::onAccent, ColorRole::accentFillHover, 4.5},
        {ColorRole::onKeyDone, ColorRole::keyDone, 4.5},
        {ColorRole::red, ColorRole::controlHover, 4.5},
        {ColorRole::focus, ColorRole::window, 3},
        {ColorRole::focus, ColorRole::well, 3},
        {ColorRole::fieldBorder, ColorRole::field, 3},
        {ColorRole::fieldBorder, ColorRole::window, 3},
        {ColorRole::greenGlyph, ColorRole::sidebar, 3},
        {ColorRole::orangeGlyph, ColorRole::card, 3},
    };
    for (const bool dark : {false, true}) {
        const DesktopLook look(dark);
        for (const Pair& pair : pairs)
            EXPECT_GE(contrast(theme().color(pair.ink), theme().color(pair.ground)), pair.least)
                << int(pair.ink) << " on " << int(pair.ground) << (dark ? " dark" : " light");
        for (const ColorRole words :
             {ColorRole::green, ColorRole::red, ColorRole::orange, ColorRole::blue, ColorRole::gray})
            for (const ColorRole ground : {ColorRole::window, ColorRole::card})
                EXPECT_GE(
                    contrast(theme().color(words), over(theme().color(words, 12), theme().color(ground))),
                    4.5)
                    << int(words) << " badge" << (dark ? " dark" : " light");
    }
}

TEST(Look, everySymbolOfTheVocabularyIsDrawnInItsTint) {
    QStringList names{QStringLiteral("laptopcomputer"), QStringLiteral("doc.text"),
                      QStringLiteral("arrow.up.right.square")};
    for (const TestID test : allCases<TestID>())
        names.append(QString::fromUtf8(symbol(test)));
    for (const TestStatus status : allCases<TestStatus>())
        names.append(QString::fromUtf8(symbol(status)));
    for (const QString& name : std::as_const(names)) {
        ASSERT_TRUE(hasSymbol(name)) << name.toStdString();
        const QImage image = symbolPixmap(name, 24, Qt::red, 2).toImage();
        EXPECT_EQ(image.size(), QSize(48, 48));
        int inked = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (const QColor pixel = image.pixelColor(x, y); pixel.alpha() > 200) {
                    ++inked;
                    EXPECT_EQ(pixel.rgb(), QColor(Qt::red).rgb());
                }
        EXPECT_GT(inked, 30) << name.toStdString();
    }
    EXPECT_FALSE(hasSymbol(QStringLiteral("no.such.symbol")));
    EXPECT_TRUE(symbolPixmap(QStringLiteral("no.such.symbol"), 24, Qt::red, 1).isNull());
}

} // namespace
} // namespace tessivo

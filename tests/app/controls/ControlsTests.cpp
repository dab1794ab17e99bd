#include "app/controls/Tile.h"
#include "tests/app/PageTesting.h"

#include "app/controls/Button.h"
#include "app/controls/Checkbox.h"
#include "app/controls/Chip.h"
#include "app/controls/FactGrid.h"
#include "app/controls/LevelBar.h"
#include "app/controls/Picker.h"
#include "app/controls/SegmentedPicker.h"
#include "app/controls/StatusBadge.h"
#include "app/controls/Stepper.h"
#include "app/controls/TextLabel.h"
#include "app/controls/TileGrid.h"
#include "app/layout/ScrollColumn.h"

#include <QAccessible>
#include <QApplication>
#include <QFocusFrame>
#include <QMenu>
#include <QTest>
#include <gtest/gtest.h>

namespace tessivo {
namespace {

using namespace tessivo::pagetest;

QString text(const char* words) {
    return QString::fromUtf8(words);
}

QAccessible::Role roleOf(QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget)->role();
}

TEST(Buttons, takeKeysButNoFocusFromTheMouse) {
    QWidget page;
    auto* column = new ColumnLayout(&page);
    auto* start = new Button(text("Start"), text("play.fill"), Button::Kind::prominent);
    auto* clear = new Button(text("Clear"));
    column->add(start);
    column->add(clear, 8);
    start->setDefaultAction(true);
    int starts = 0, clears = 0;
    QObject::connect(start, &Button::clicked, [&] { ++starts; });
    QObject::connect(clear, &Button::clicked, [&] { ++clears; });
    showAt(page, {300, 120});

    EXPECT_TRUE(click(clear));
    EXPECT_FALSE(clear->hasFocus());
    QTest::keyClick(page.window()->windowHandle(), Qt::Key_Return);
    EXPECT_EQ(starts, 1) << "Return is the default action's";
    clear->setFocus(Qt::TabFocusReason);
    QTest::keyClick(page.window()->windowHandle(), Qt::Key_Return);
    QTest::keyClick(clear, Qt::Key_Space);
    EXPECT_EQ(std::pair(starts, clears), std::pair(1, 3)) << "unless another button has the focus";
    start->setEnabled(false);
    clear->clearFocus();
    QTest::keyClick(page.window()->windowHandle(), Qt::Key_Return);
    EXPECT_EQ(starts, 1);
}

TEST(Buttons, wrapRatherThanClipAWordyLabel) {
    Button button(text("Heard it clearly, in that ear only?"), text("checkmark"));
    const int natural = button.sizeHint().width();
    EXPECT_EQ(button.heightForWidth(natural), button.sizeHint().height());
    EXPECT_GT(button.heightForWidth(natural / 2), button.sizeHint().height());
}

TEST(Checkbox, wrapsRatherThanClipsAndIsTickedByAnyOfItsLines) {
    QWidget page;
    auto* column = new ColumnLayout(&page);
    auto* box = new Checkbox(text("Not part of this sale (leave it out of the report)"));
    column->add(box);
    showAt(page, {600, 200});
    EXPECT_EQ(box->height(), theme().lineHeight(TextRole::body));
    page.resize(150, 200);
    settle();
    EXPECT_GE(box->height(), 3 * QFontMetrics(theme().font(TextRole::body)).height());
    EXPECT_EQ(clippedControls(&page).join('\n'), QString());
    QTest::mouseClick(box, Qt::LeftButton, {}, {box->width() / 2, box->height() - 4});
    EXPECT_TRUE(isChecked(box));
    EXPECT_EQ(roleOf(box), QAccessible::CheckBox);
    QAccessible::queryAccessibleInterface(box)->actionInterface()->doAction(
        QAccessibleActionInterface::pressAction());
    EXPECT_FALSE(isChecked(box));
}

TEST(SegmentedPicker, isChosenByMouseAndArrows) {
    SegmentedPicker picker(text("System Information shows"),
                           {text("Not checked yet"), text("Disabled"), text("Enabled")});
    std::vector<int> chosen;
    QObject::connect(&picker, &SegmentedPicker::chosen, [&](int index) { chosen.push_back(index); });
    showAt(picker, picker.sizeHint());
    const auto segment = [&](const char* name) { return findByName<QAbstractButton>(&picker, text(name)); };
    EXPECT_EQ(roleOf(segment("Disabled")), QAccessible::RadioButton);
    EXPECT_EQ(segment("Not checked yet")->focusPolicy(), Qt::TabFocus);
    EXPECT_EQ(segment("Disabled")->focusPolicy(), Qt::NoFocus);
    EXPECT_TRUE(click(segment("Disabled")));
    EXPECT_TRUE(click(segment("Disabled")));
    EXPECT_TRUE(isChecked(segment("Disabled")));
    segment("Disabled")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    EXPECT_TRUE(segment("Enabled")->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
    EXPECT_EQ(chosen, (std::vector{1, 2, 1}));
    EXPECT_EQ(segment("Disabled")->focusPolicy(), Qt::TabFocus) << "the chosen one is the one stop";
    EXPECT_EQ(segment("Not checked yet")->focusPolicy(), Qt::NoFocus);
    picker.setCurrent(0);
    EXPECT_TRUE(isChecked(segment("Not checked yet")));
    EXPECT_FALSE(isChecked(segment("Disabled")));
    EXPECT_EQ(segment("Not checked yet")->focusPolicy(), Qt::TabFocus) << "without its ever having the focus";
    EXPECT_EQ(segment("Disabled")->focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(chosen.size(), 3u) << "only a person's choice is told";
    EXPECT_GT(picker.heightForWidth(picker.sizeHint().width() - 1), picker.sizeHint().height());
}

TEST(Picker, isChosenFromItsMenuAndNeverByTheWheel) {
    Picker picker(text("Layout"), {text("US (ANSI)"), text("International (ISO)")});
    std::vector<int> chosen;
    QObject::connect(&picker, &QComboBox::activated, [&](int index) { chosen.push_back(index); });
    showAt(picker, {200, 30});
    EXPECT_TRUE(click(&picker));
    auto* menu = picker.findChild<QMenu*>();
    ASSERT_TRUE(menu);
    ASSERT_EQ(menu->actions().size(), 2);
    EXPECT_TRUE(menu->actions().at(0)->isChecked());
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    settle();
    EXPECT_EQ(chosen, std::vector{1});
    EXPECT_EQ(picker.currentText(), text("International (ISO)"));
    QWheelEvent wheel({10, 10}, picker.mapToGlobal(QPointF(10, 10)), {}, {0, 120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&picker, &wheel);
    EXPECT_EQ(picker.currentIndex(), 1);
    EXPECT_TRUE(click(&picker));
    EXPECT_TRUE(QApplication::activePopupWidget());
    picker.setChoices({text("Only one")});
    EXPECT_FALSE(QApplication::activePopupWidget()) << "its choices are gone";
    EXPECT_EQ(picker.currentIndex(), 0);
    EXPECT_EQ(chosen.size(), 1u);
}

TEST(Capsules, haveTenAcrossAndFourOrSixDown) {
    const auto around = [](QWidget& capsule, TextRole role, int symbol, int gap) {
        const QSize size = capsule.sizeHint();
        return QSize(size.width() - theme().textWidth(role, accessibleNameOf(&capsule)) - symbol - gap,
                     size.height() - std::max(symbol, int(theme().lineHeight(role))));
    };
    StatusBadge badge(TestStatus::works);
    Chip chip(text("Click"));
    Capsule tag(Capsule::tag, {text("exclamationmark.bubble"), text("Draft"), ColorRole::orange,
                               ColorRole::orange, ColorRole::orange, 15});
    EXPECT_EQ(around(badge, TextRole::badge, 15, 5), QSize(20, 8));
    EXPECT_EQ(around(chip, TextRole::control, 18, 6), QSize(20, 12));
    EXPECT_EQ(around(tag, TextRole::badge, 16, 6), QSize(20, 8));
}

TEST(Stepper, stepsWithinItsBounds) {
    Stepper stepper(text("Ports on this Mac: %lld"), 1, 3, 194);
    std::vector<int> values;
    QObject::connect(&stepper, &Stepper::stepped, [&](int value) { values.push_back(value); });
    stepper.setValue(2);
    showAt(stepper, stepper.sizeHint());
    EXPECT_EQ(stepper.width(), 260);
    EXPECT_TRUE(clickOn(&stepper, text("Increment")));
    EXPECT_FALSE(clickOn(&stepper, text("Increment"))) << "at its top it offers no more";
    stepper.setFocus();
    QTest::keyClick(&stepper, Qt::Key_Down);
    QTest::keyClick(&stepper, Qt::Key_Down);
    QTest::keyClick(&stepper, Qt::Key_Down);
    EXPECT_EQ(values, (std::vector{3, 2, 1}));
    auto* actions = QAccessible::queryAccessibleInterface(&stepper)->actionInterface();
    actions->doAction(QAccessibleActionInterface::increaseAction());
    actions->doAction(QAccessibleActionInterface::decreaseAction());
    EXPECT_EQ(values.size(), 5u);
    EXPECT_EQ(accessibleNameOf(&stepper), text("Ports on this Mac: 1"));
    EXPECT_EQ(accessibleValueOf(&stepper), text("1"));
}

TEST(Tiles, fillTheWidthInColumns) {
    struct Case {
        int width, columns;
    };
    TileGrid grid;
    for (int i = 0; i < 4; ++i)
        grid.add(new Tile(text("Keyboard"), text("keyboard")));
    showAt(grid, {894, 300});
    for (const Case& each :
         {Case{894, 3}, Case{774, 3}, Case{773, 2}, Case{564, 2}, Case{512, 2}, Case{511, 1}, Case{200, 1}}) {
        grid.resize(each.width, 400);
        EXPECT_EQ(grid.columns(), each.columns) << each.width;
    }
    auto* tile = grid.findChild<Tile*>();
    tile->setStatus(TestStatus::problem, text("Dead or stuck pixels seen"));
    EXPECT_EQ(accessibleNameOf(tile), text("Keyboard: Problem. Dead or stuck pixels seen"));
}

TEST(FactGrid, isReadByRowsAndMakesTwoColumnsFrom720) {
    FactGrid grid(FactGrid::identity());
    const int serial = grid.addFact(text("Serial number"), text("J4N7WQX2PL"), true);
    grid.addFact(text("Chip"), text("Apple M2"));
    EXPECT_EQ(grid.heightForWidth(720), 30);
    EXPECT_EQ(grid.heightForWidth(719), 60);
    showAt(grid, {720, 60});
    auto* row = findNamed(&grid, text("Serial number, J4N7WQX2PL"), [](QWidget*) { return true; });
    ASSERT_TRUE(row);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(row)->childCount(), 0);
    grid.setValue(serial, text("Couldn't read it"));
    EXPECT_EQ(accessibleNameOf(row), text("Serial number, Couldn't read it"));
    EXPECT_EQ(grid.value(serial), text("Couldn't read it"));
}

TEST(ScrollColumn, centresItsColumnAndKeepsTheFocusInSight) {
    ScrollColumn page;
    auto* first = new Button(text("First"));
    page.add(first);
    for (int i = 0; i < 40; ++i)
        page.add(new TextLabel(text("A line of words")), 10);
    auto* last = new Checkbox(text("Last"));
    page.add(last, 10, Qt::AlignLeft);
    showAt(page, {1180, 400});
    EXPECT_EQ(first->mapTo(&page, QPoint()).x(), (1180 - 980) / 2 + 28);
    EXPECT_EQ(first->width(), 980 - 2 * 28);
    page.resize(620, 400);
    settle();
    EXPECT_EQ(first->mapTo(&page, QPoint()), QPoint(28, 28));
    EXPECT_EQ(first->width(), 620 - 2 * 28) << "the thumb lies in the padding";
    const QScrollBar* bar = page.verticalScrollBar();
    ASSERT_TRUE(bar->isVisible());
    EXPECT_EQ(bar->mapTo(&page, bar->rect().topRight()), QPoint(619, 0));
    EXPECT_EQ(page.viewport()->width(), 620) << "over the contents";
    EXPECT_EQ(bar->pageStep(), 400) << "as long as what is seen of the whole";
    EXPECT_EQ(bar->pageStep() + bar->maximum(), page.widget()->height());

    last->setFocus(Qt::TabFocusReason);
    settle();
    EXPECT_TRUE(page.rect().contains(QRect(last->mapTo(&page, QPoint()), last->size())));
    auto* ring = page.findChild<QFocusFrame*>();
    ASSERT_TRUE(ring && ring->isVisible());
    const QImage seen = page.grab().toImage();
    const auto at = [&](int x, int y) {
        return seen.pixelColor(last->mapTo(&page, QPoint(x, y)) * seen.devicePixelRatio()).rgb();
    };
    const QRgb focus = theme().color(ColorRole::focus).rgb();
    EXPECT_EQ(at(-3, 10), focus) << "two outside the box";
    EXPECT_EQ(at(10, -2), focus) << "which stands one down in its line";
    EXPECT_NE(at(last->width() + 2, 10), focus) << "and not around its words";
    page.verticalScrollBar()->setValue(page.verticalScrollBar()->maximum() - 20);
    EXPECT_EQ(last->mapFromGlobal(ring->mapToGlobal(QPoint())), QPoint(-4, -4)) << "it scrolls along";
    last->setEnabled(false);
    settle();
    EXPECT_FALSE(ring->isVisible() && ring->widget() == last);
}

TEST(LevelBar, speaksItsValue) {
    LevelBar meter;
    meter.setLevel(7, text("-3 decibels"));
    EXPECT_EQ(meter.level(), 1);
    EXPECT_EQ(accessibleNameOf(&meter), text("Level"));
    EXPECT_EQ(accessibleValueOf(&meter), text("-3 decibels"));
}

} // namespace
} // namespace tessivo

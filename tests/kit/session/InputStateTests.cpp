#include "kit/session/DisplayTest.h"
#include "kit/session/KeyboardTest.h"
#include "kit/session/TrackpadTest.h"

#include <gtest/gtest.h>

#include <limits>

namespace tessivo {
namespace {

TEST(KeyboardTest, aPressedKeyStaysDone) {
    KeyboardTest test;
    EXPECT_FALSE(test.started());
    test.toggleHandChecked(0);
    EXPECT_TRUE(test.started());
    EXPECT_EQ(test.progress(), (KeyboardTest::Progress{1, 77}));
    test.toggleHandChecked(0);
    EXPECT_FALSE(test.started());

    test.press(0);
    test.toggleHandChecked(0);
    EXPECT_EQ(test.progress().done, 1);
    test.toggleHandChecked(0);
    EXPECT_TRUE(test.isDone(0));
    EXPECT_EQ(test.remaining().size(), 76u);
    EXPECT_EQ(test.remaining().front().id, "esc");
}

TEST(KeyboardTest, onlyAGivenAnswerStartsIt) {
    KeyboardTest test;
    test.manual["touchID"] = ManualAnswer::unanswered;
    EXPECT_FALSE(test.started());
    EXPECT_EQ(test.answer("backlight"), ManualAnswer::unanswered);
    test.manual["backlight"] = ManualAnswer::notPresent;
    EXPECT_TRUE(test.started());
    EXPECT_EQ(test.answer("backlight"), ManualAnswer::notPresent);
}

TEST(KeyboardTest, keysOffTheDiagramDontCount) {
    KeyboardTest test;
    test.press(71);
    test.press(10);
    test.toggleHandChecked(70);
    EXPECT_EQ(test.progress(), (KeyboardTest::Progress{0, 77}));
    EXPECT_EQ(test.offDiagram(), (std::set<KeyCode>{10, 71}));
    test.layout = KeyboardLayout::ID::iso;
    EXPECT_EQ(test.progress(), (KeyboardTest::Progress{1, 78}));
    EXPECT_EQ(test.offDiagram(), (std::set<KeyCode>{71}));
}

TEST(TrackpadTest, everyPositionFallsIntoACell) {
    constexpr double inf = std::numeric_limits<double>::infinity();
    struct Row {
        double x, y;
        std::int64_t cell;
    };
    for (const Row& row : {Row{0, 0, 0}, Row{1, 1, 39}, Row{0.124, 0.199, 0}, Row{0.125, 0.2, 9},
                           Row{0.999, 0, 7}, Row{0, 0.999, 32}, Row{-3, 1e300, 32}, Row{inf, -inf, 7}}) {
        TrackpadTest test;
        test.touch(row.x, row.y);
        EXPECT_EQ(test.touched, std::set<std::int64_t>{row.cell});
        EXPECT_TRUE(test.isTouched(row.cell % 8, row.cell / 8));
    }
    TrackpadTest test;
    test.touch(std::numeric_limits<double>::quiet_NaN(), 0.5);
    EXPECT_TRUE(test.touched.empty());
}

TEST(TrackpadTest, aForceClickOrAFingerCountAloneDoesNotStartIt) {
    TrackpadTest test;
    test.noteFingers(3);
    test.noteFingers(2);
    test.forceClicked = true;
    EXPECT_EQ(test.maxFingers, 3);
    EXPECT_FALSE(test.started());
    for (bool TrackpadTest::*flag : {&TrackpadTest::clicked, &TrackpadTest::secondaryClicked,
                                     &TrackpadTest::scrolled, &TrackpadTest::zoomed}) {
        TrackpadTest one;
        one.*flag = true;
        EXPECT_TRUE(one.started());
    }
    test.touch(0.5, 0.5);
    EXPECT_TRUE(test.started());
}

TEST(TrackpadTest, thirtySixCellsAreTheWholeSurface) {
    TrackpadTest test;
    for (std::int64_t cell = 0; cell < 35; ++cell)
        test.touched.insert(cell);
    EXPECT_FALSE(test.steps().front().met);
    test.touched.insert(35);
    EXPECT_TRUE(test.steps().front().met);
    EXPECT_EQ(test.coverage(), 0.9);
}

TEST(DisplayTest, sixColorsAreAll) {
    DisplayTest test;
    EXPECT_EQ(DisplayTest::colors(),
              (std::vector<std::string>{"Black", "White", "Red", "Green", "Blue", "Gray"}));
    for (const std::string& color : DisplayTest::colors()) {
        EXPECT_FALSE(test.allShown());
        test.shown.insert(color);
    }
    EXPECT_TRUE(test.allShown());
}

} // namespace
} // namespace tessivo

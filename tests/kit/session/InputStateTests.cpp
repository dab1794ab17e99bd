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
    test.manual["backlight"] = ManualAnswer::notPresent;
    EXPECT_TRUE(test.started());
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
    const std::tuple<double, double, std::int64_t> rows[] = {
        {0, 0, 0},     {1, 1, 39},     {0.124, 0.199, 0}, {0.125, 0.2, 9},
        {0.999, 0, 7}, {0, 0.999, 32}, {-3, 1e300, 32},   {inf, -inf, 7}};
    for (const auto& [x, y, cell] : rows) {
        TrackpadTest test;
        test.touch(x, y);
        EXPECT_EQ(test.touched, std::set<std::int64_t>{cell});
        EXPECT_TRUE(test.isTouched(cell % 8, cell / 8));
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
    for (bool TrackpadTest::* flag : {&TrackpadTest::clicked, &TrackpadTest::secondaryClicked,
                                      &TrackpadTest::scrolled, &TrackpadTest::zoomed}) {
        TrackpadTest one;
        one.*flag = true;
        EXPECT_TRUE(one.started());
    }
    test.touch(0.5, 0.5);
    EXPECT_TRUE(test.started());
}

} // namespace
} // namespace tessivo

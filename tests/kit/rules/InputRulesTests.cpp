#include "kit/rules/Rules.h"
#include "tests/kit/rules/Printed.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

using enum ManualAnswer;

/// A keyboard test on which all but the last `open` keys of the diagram were pressed.
KeyboardTest pressedBut(std::size_t open, KeyboardLayout::ID layout = KeyboardLayout::ID::ansi) {
    KeyboardTest test;
    test.layout = layout;
    std::vector<KeySpec> keys = KeyboardLayout::named(layout).testableKeys();
    keys.resize(keys.size() - open);
    for (const KeySpec& key : keys)
        test.press(*key.code);
    return test;
}

TEST(KeyboardRule, countsKeysAndRestsOnTheHandChecks) {
    KeyboardTest answeredOnly;
    answeredOnly.manual["backlight"] = works;
    KeyboardTest oneOpen = pressedBut(0);
    oneOpen.manual = {{"touchID", works}, {"specialKeys", works}, {"backlight", unanswered}};
    KeyboardTest complete = pressedBut(0, KeyboardLayout::ID::iso);
    complete.manual = {{"touchID", notPresent}, {"specialKeys", works}, {"backlight", notPresent}};
    KeyboardTest faulty = pressedBut(0);
    faulty.manual = {
        {"touchID", problem}, {"specialKeys", works}, {"backlight", problem}, {"unknown", problem}};
    KeyboardTest ticked = pressedBut(3);
    ticked.toggleHandChecked(0);   // pressed as well, so it isn't a ticked key
    ticked.toggleHandChecked(124); // right
    ticked.toggleHandChecked(71);  // not on the diagram
    ticked.press(71);
    ticked.manual = {{"touchID", works}, {"specialKeys", works}, {"backlight", works}};

    struct Row {
        KeyboardTest test;
        const char* expected;
    };
    const std::vector<Row> rows = {
        {KeyboardTest{}, "notRun: Not run"},
        {answeredOnly, "unfinished: 0 of 77 keys; 2 checks by hand left | 0 of 77 keys on the US (ANSI) "
                       "layout | Not pressed yet: "
                       "esc, F1, F2, F3, F4, F5, F6, F7, F8, F9, F10, F11 and 65 more | "
                       "Keyboard backlight: works (checked by hand)"},
        {oneOpen,
         "unfinished: 77 of 77 keys; 1 check by hand left | 77 of 77 keys on the US (ANSI) layout | "
         "Touch ID or power key: works (checked by hand) | Top-row special keys: works (checked by hand)"},
        {complete,
         "works: Every key works (78 keys, plus 3 checks by hand) | 78 of 78 keys on the International (ISO) "
         "layout | Touch ID or power key: not on this keyboard | Top-row special keys: works (checked by "
         "hand) | "
         "Keyboard backlight: not on this keyboard"},
        {faulty,
         "problem: Problem: Touch ID or power key, Keyboard backlight | 77 of 77 keys on the US (ANSI) "
         "layout | Touch ID or power key: problem | Top-row special keys: works (checked by hand) | "
         "Keyboard backlight: problem"},
        {ticked,
         "unfinished: 75 of 77 keys | 75 of 77 keys (1 ticked by hand) on the US (ANSI) layout | "
         "Not pressed yet: ▲, ▼ | Touch ID or power key: works (checked by hand) | "
         "Top-row special keys: works (checked by hand) | Keyboard backlight: works (checked by hand)"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(printed(Rules::keyboard(row.test)), row.expected);
}

TEST(KeyboardRule, namesTwelveOpenKeysAndCountsTheRest) {
    // The space bar has no label and goes by its id.
    EXPECT_EQ(Rules::keyboard(pressedBut(12)).details.at(1),
              "Not pressed yet: shift, fn, control, option, command, space, command, option, ◀\uFE0E, ▲, ▼, "
              "▶\uFE0E");
    EXPECT_TRUE(Rules::keyboard(pressedBut(13)).details.at(1).ends_with(", ▼ and 1 more"));
}

TEST(TrackpadRule, passesOnSurfaceClicksAndScroll) {
    const auto touched = [](std::int64_t cells) {
        TrackpadTest test;
        for (std::int64_t cell = 0; cell < cells; ++cell)
            test.touched.insert(cell);
        return test;
    };
    TrackpadTest forceOnly;
    forceOnly.forceClicked = true;
    forceOnly.maxFingers = 3;
    TrackpadTest complete = touched(36);
    complete.clicked = complete.secondaryClicked = complete.scrolled = true;
    TrackpadTest nearly = touched(35);
    nearly.clicked = nearly.secondaryClicked = nearly.scrolled = nearly.forceClicked = nearly.zoomed = true;
    nearly.maxFingers = 5;
    TrackpadTest begun = touched(23);
    begun.clicked = true;
    begun.maxFingers = 1;

    EXPECT_EQ(printed(Rules::trackpad(forceOnly)), "notRun: Not run");
    EXPECT_EQ(
        printed(Rules::trackpad(complete)),
        "works: Whole surface, click, secondary click and scrolling work | Surface touched: 90% | Click: "
        "seen | Secondary click: seen | Two-finger scroll: seen | Force Click: not seen (older trackpads "
        "don't "
        "have it) | Pinch to zoom: not seen");
    EXPECT_EQ(
        printed(Rules::trackpad(nearly)),
        "unfinished: Still to do: whole surface | Surface touched: 88% | Click: seen | Secondary click: seen "
        "| Two-finger scroll: seen | Up to 5 fingers at once | Force Click: seen | Pinch to zoom: seen");
    EXPECT_EQ(
        printed(Rules::trackpad(begun)),
        "unfinished: Still to do: whole surface, secondary click, two-finger scroll | Surface touched: 58% | "
        "Click: seen | Secondary click: not yet | Two-finger scroll: not yet | Up to 1 finger at once | "
        "Force Click: not seen (older trackpads don't have it) | Pinch to zoom: not seen");
}

TEST(DisplayRule, takesTheAnswerBeforeTheColors) {
    const std::set<std::string> all(DisplayTest::colors().begin(), DisplayTest::colors().end());
    const std::string allSeen = "Colors shown full screen: Black, White, Red, Green, Blue, Gray";
    struct Row {
        DisplayTest test;
        std::string expected;
    };
    const std::vector<Row> rows = {
        {{{}, unanswered, "Color LCD"}, "notRun: Not run"},
        {{{"Pink"}, unanswered, {}}, "notRun: Not run"},
        {{{"Red", "Black"}, unanswered, "Color LCD"},
         "unfinished: 2 of 6 colors shown | Colors shown full screen: Black, Red | Display: Color LCD"},
        {{{"Black", "White", "Red", "Green", "Blue", "Pink"}, unanswered, {}},
         "unfinished: Colors shown; answer what you saw | Colors shown full screen: Black, White, Red, "
         "Green, Blue"},
        {{all, unanswered, {}}, "unfinished: Colors shown; answer what you saw | " + allSeen},
        {{all, works, "Color LCD"},
         "works: No dead or stuck pixels seen | " + allSeen + " | Display: Color LCD"},
        {{{}, works, {}}, "works: No dead or stuck pixels seen"},
        {{{"Red"}, problem, {}}, "problem: Dead or stuck pixels seen | Colors shown full screen: Red"},
        {{{}, notPresent, {}}, "notIncluded: No display"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(printed(Rules::display(row.test)), row.expected);
}

} // namespace
} // namespace tessivo

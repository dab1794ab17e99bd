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

    const std::pair<KeyboardTest, const char*> rows[] = {
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
    for (const auto& [test, expected] : rows)
        EXPECT_EQ(printed(Rules::keyboard(test)), expected);
}

TEST(KeyboardRule, namesTwelveOpenKeysAndCountsTheRest) {
    // The space bar has no label and goes by its id.
    EXPECT_EQ(Rules::keyboard(pressedBut(12)).details.at(1),
              "Not pressed yet: shift, fn, control, option, command, space, command, option, ◀\uFE0E, ▲, ▼, "
              "▶\uFE0E");
    EXPECT_TRUE(Rules::keyboard(pressedBut(13)).details.at(1).ends_with(", ▼ and 1 more"));
}

} // namespace
} // namespace tessivo

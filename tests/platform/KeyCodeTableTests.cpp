#include "platform/KeyCodeTable.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

using namespace tessivo;

namespace {

using ID = KeyboardLayout::ID;

std::optional<KeyCode> code(int kernelCode, ID layout = ID::ansi) {
    return KeyCodeTable::virtualKeyCode(std::uint32_t(kernelCode) + 8, layout);
}

TEST(KeyCodeTable, everyKeyOfBothDiagramsHasAScanCodeAndNoTwoShareOne) {
    for (const ID layout : {ID::ansi, ID::iso}) {
        std::map<KeyCode, std::set<int>> from;
        for (int kernelCode = 0; kernelCode < KEY_CNT; ++kernelCode)
            if (const auto found = code(kernelCode, layout); found && kernelCode != KEY_WAKEUP)
                from[*found].insert(kernelCode);
        for (const KeySpec& key : KeyboardLayout::named(layout).testableKeys())
            EXPECT_EQ(from[*key.code].size(), 1u) << KeyboardLayout::title(layout) << " " << key.id;
    }
}

TEST(KeyCodeTable, keysThatNoDiagramShowsHaveTheirOwnCodes) {
    const std::pair<int, KeyCode> rows[] = {
        {KEY_F13, 105},    {KEY_F20, 90},     {KEY_KP0, 82},     {KEY_KP7, 89},      {KEY_KP8, 91},
        {KEY_KP9, 92},     {KEY_KPDOT, 65},   {KEY_KPENTER, 76}, {KEY_KPPLUS, 69},   {KEY_KPSLASH, 75},
        {KEY_KPEQUAL, 81}, {KEY_NUMLOCK, 71}, {KEY_FN, 63},      {KEY_RIGHTCTRL, 62}};
    for (const auto& [kernelCode, macCode] : rows)
        EXPECT_EQ(code(kernelCode), macCode) << kernelCode;
}

TEST(KeyCodeTable, theTwoKeysThatAnISOKeyboardSwapsFollowTheLayout) {
    EXPECT_EQ(code(KEY_GRAVE, ID::ansi), 50);
    EXPECT_EQ(code(KEY_GRAVE, ID::iso), 10);
    EXPECT_EQ(code(KEY_102ND, ID::iso), 50);
    EXPECT_EQ(code(KEY_102ND, ID::ansi), 10)
        << "a key that the diagram doesn't have must not tick one that it has";
}

TEST(KeyCodeTable, everyModifierOfTheDiagramsIsOne) {
    for (const auto* layout : {&KeyboardLayout::ansi(), &KeyboardLayout::iso()})
        for (const KeySpec& key : layout->testableKeys())
            EXPECT_EQ(KeyCodeTable::isModifier(*key.code), key.kind == KeyKind::modifier) << key.id;
}

TEST(KeyCodeTable, whatIsNoKeyOfAMacHasNoCode) {
    for (const std::uint32_t scanCode : {0u, 7u, 8u, 255u, std::uint32_t(KEY_BRIGHTNESSUP) + 8, 0xFFFFFFFFu})
        EXPECT_FALSE(KeyCodeTable::virtualKeyCode(scanCode, ID::ansi)) << scanCode;
}

} // namespace

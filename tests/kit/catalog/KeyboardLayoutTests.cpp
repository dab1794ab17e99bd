#include "kit/catalog/KeyboardLayout.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tessivo {
namespace {

/// Each slot as "id:code", a stack as "upper/lower".
std::vector<std::string> printed(const KeyboardLayout& layout) {
    const auto key = [](const KeySpec& spec) {
        return spec.id + ":" + (spec.code ? std::to_string(*spec.code) : "none");
    };
    std::vector<std::string> lines;
    for (const auto& row : layout.rows) {
        std::string& line = lines.emplace_back();
        for (const KeySlot& slot : row) {
            if (!line.empty()) line += " ";
            const auto* stack = std::get_if<KeyStack>(&slot);
            line += stack ? key(stack->upper) + "/" + key(stack->lower) : key(std::get<KeySpec>(slot));
        }
    }
    return lines;
}

const std::string functionRow =
    "esc:53 f1:122 f2:120 f3:99 f4:118 f5:96 f6:97 f7:98 f8:100 f9:101 f10:109 f11:103 "
    "f12:111 touchID:none";
const std::string digits = "1:18 2:19 3:20 4:21 5:23 6:22 7:26 8:28 9:25 0:29 minus:27 equal:24";
const std::string upper = "q:12 w:13 e:14 r:15 t:17 y:16 u:32 i:34 o:31 p:35 lbracket:33 rbracket:30";
const std::string home = "a:0 s:1 d:2 f:3 g:5 h:4 j:38 k:40 l:37 semicolon:41 quote:39";
const std::string lower = "z:6 x:7 c:8 v:9 b:11 n:45 m:46 comma:43 period:47 slash:44";
const std::string bottomRow =
    "fn:63 control:59 option:58 command:55 space:49 rcommand:54 roption:61 left:123 "
    "up:126/down:125 right:124";

TEST(KeyboardLayout, everyKeyStandsInItsPlace) {
    EXPECT_EQ(printed(KeyboardLayout::ansi()),
              (std::vector<std::string>{functionRow, "grave:50 " + digits + " delete:51",
                                        "tab:48 " + upper + " backslash:42", "caps:57 " + home + " return:36",
                                        "shift:56 " + lower + " rshift:60", bottomRow}));
    EXPECT_EQ(printed(KeyboardLayout::iso()),
              (std::vector<std::string>{functionRow, "section:10 " + digits + " delete:51",
                                        "tab:48 " + upper + " return:36",
                                        "caps:57 " + home + " backslash:42 return:36",
                                        "shift:56 grave:50 " + lower + " rshift:60", bottomRow}));
}

TEST(KeyboardLayout, rowsAreFifteenUnitsWideAndEachKeyCountsOnce) {
    const std::pair<KeyboardLayout::ID, std::size_t> rows[] = {{KeyboardLayout::ID::ansi, 77},
                                                               {KeyboardLayout::ID::iso, 78}};
    for (const auto& [id, keys] : rows) {
        const KeyboardLayout& layout = KeyboardLayout::named(id);
        for (const auto& row : layout.rows) {
            double width = 0;
            for (const KeySlot& slot : row) {
                const auto* stack = std::get_if<KeyStack>(&slot);
                width += stack ? stack->upper.width : std::get<KeySpec>(slot).width;
            }
            EXPECT_EQ(width, 15.0);
        }
        EXPECT_EQ(layout.keys().size(), keys + 1) << "Touch ID has no code and never counts";
        EXPECT_EQ(layout.testableKeys().size(), keys);
        EXPECT_EQ(layout.codes().size(), keys);
        EXPECT_EQ(std::ranges::count(layout.testableKeys(), KeyKind::modifier, &KeySpec::kind), 9);
        EXPECT_EQ(std::ranges::count(layout.testableKeys(), KeyKind::function, &KeySpec::kind), 12);
    }
}

TEST(KeyboardLayout, findsAKeyByItsCode) {
    const KeyboardLayout& ansi = KeyboardLayout::ansi();
    const KeyboardLayout& iso = KeyboardLayout::iso();
    EXPECT_EQ(iso.key(36), (KeySpec{"return", "return", 36, 1.5})) << "the upper half";
    EXPECT_EQ(iso.key(10)->label, "§");
    EXPECT_EQ(ansi.key(10), std::nullopt);
    EXPECT_EQ(ansi.key(49)->name(), "space");
    const std::pair<KeyCode, const char*> arrows[] = {
        {123, "\u25C0\uFE0E"}, {124, "\u25B6\uFE0E"}, {126, "\u25B2"}, {125, "\u25BC"}};
    for (const auto& [code, label] : arrows)
        EXPECT_EQ(ansi.key(code)->label, label);
}

} // namespace
} // namespace tessivo

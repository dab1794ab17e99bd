#include "platform/KeyCodeTable.h"

#include <algorithm>
#include <initializer_list>
#include <unordered_map>

namespace tessivo {

namespace {

constexpr std::uint32_t scanCodeOffset = 8; // X11 counts from the kernel's code + 8
constexpr std::uint32_t leftOfOne = 41;     // KEY_GRAVE
constexpr std::uint32_t besideShift = 86;   // KEY_102ND
constexpr KeyCode grave = 50;
constexpr KeyCode section = 10;

/// Keys whose kernel codes follow one another.
struct Run {
    std::uint32_t first;
    std::initializer_list<KeyCode> codes;
};

const Run runs[] = {
    {1, {53, 18, 19, 20, 21, 23, 22, 26, 28, 25, 29, 27, 24, 51}},      // esc, 1 to equal, delete
    {15, {48, 12, 13, 14, 15, 17, 16, 32, 34, 31, 35, 33, 30, 36, 59}}, // tab, q to ], return, control
    {30, {0, 1, 2, 3, 5, 4, 38, 40, 37, 41, 39}},                       // a to quote
    {42, {56, 42, 6, 7, 8, 9, 11, 45, 46, 43, 47, 44, 60}},             // shift, backslash, z to /, shift
    {55, {67, 58, 49, 57}},                                             // keypad *, option, space, caps
    {59, {122, 120, 99, 118, 96, 97, 98, 100, 101, 109}},               // F1 to F10
    {69, {71, 107}},                                                    // clear; scroll lock is F14
    {71, {89, 91, 92, 78, 86, 87, 88, 69, 83, 84, 85, 82, 65}},         // keypad 7 to decimal
    {87, {103, 111, 94}},                                               // F11, F12, JIS underscore
    {92, {104, 104, 102, 95, 76, 62, 75, 105, 61}},                     // JIS kana and eisu, keypad
                                                                        // enter, control, keypad /,
                                                                        // print screen is F13, option
    {102, {115, 126, 116, 123, 124, 119, 125, 121, 114, 117}},          // home to forward delete
    {113, {74, 73, 72, 127}},                                           // mute, volume, power
    {117, {81}},                                                        // keypad =
    {119, {113}},                                                       // pause is F15
    {121, {95, 104, 102, 93, 55, 54, 110}},                             // keypad comma, kana, eisu, yen,
                                                                        // command, command, menu
    {138, {114}},                                                       // help
    {143, {63}},                                                        // fn as laptops' own keys send it
    {183, {105, 107, 113, 106, 64, 79, 80, 90}},                        // F13 to F20
    {464, {63}},                                                        // fn
};

std::unordered_map<std::uint32_t, KeyCode> buildTable() {
    std::unordered_map<std::uint32_t, KeyCode> table;
    for (const Run& run : runs) {
        std::uint32_t code = run.first + scanCodeOffset;
        for (KeyCode macCode : run.codes)
            table.emplace(code++, macCode);
    }
    return table;
}

} // namespace

std::optional<KeyCode> KeyCodeTable::virtualKeyCode(std::uint32_t scanCode, KeyboardLayout::ID layout) {
    static const auto table = buildTable();
    const bool iso = layout == KeyboardLayout::ID::iso;
    if (scanCode == leftOfOne + scanCodeOffset) return iso ? section : grave;
    if (scanCode == besideShift + scanCodeOffset) return iso ? grave : section;
    const auto entry = table.find(scanCode);
    if (entry == table.end()) return std::nullopt;
    return entry->second;
}

bool KeyCodeTable::isModifier(KeyCode code) {
    static constexpr KeyCode modifiers[] = {54, 55, 56, 57, 58, 59, 60, 61, 62, 63};
    return std::ranges::binary_search(modifiers, code);
}

} // namespace tessivo

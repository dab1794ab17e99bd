#include "kit/catalog/KeyboardLayout.h"

#include <algorithm>
#include <string_view>

namespace tessivo {
namespace {

using Row = KeyboardLayout::Row;

KeySpec plain(const char* id, const char* label, KeyCode code, double width = 1) {
    return {id, label, code, width, KeyKind::normal};
}

KeySpec modifier(const char* id, const char* label, KeyCode code, double width = 1) {
    return {id, label, code, width, KeyKind::modifier};
}

/// The keys before a run, the run, and the keys after it.
Row row(Row before, const Row& run, const Row& after) {
    before.insert(before.end(), run.begin(), run.end());
    before.insert(before.end(), after.begin(), after.end());
    return before;
}

Row functionRow() {
    static constexpr KeyCode codes[] = {122, 120, 99, 118, 96, 97, 98, 100, 101, 109, 103, 111};
    Row keys = {plain("esc", "esc", 53, 2)};
    int number = 0;
    for (const KeyCode code : codes) {
        const std::string text = std::to_string(++number);
        keys.push_back(KeySpec{"f" + text, "F" + text, code, 1, KeyKind::function});
    }
    keys.push_back(KeySpec{"touchID", "Touch ID", std::nullopt, 1, KeyKind::manual});
    return keys;
}

Row digitRun() {
    return {plain("1", "1", 18), plain("2", "2", 19), plain("3", "3", 20),     plain("4", "4", 21),
            plain("5", "5", 23), plain("6", "6", 22), plain("7", "7", 26),     plain("8", "8", 28),
            plain("9", "9", 25), plain("0", "0", 29), plain("minus", "-", 27), plain("equal", "=", 24)};
}

Row upperRun() {
    return {plain("q", "Q", 12), plain("w", "W", 13), plain("e", "E", 14),        plain("r", "R", 15),
            plain("t", "T", 17), plain("y", "Y", 16), plain("u", "U", 32),        plain("i", "I", 34),
            plain("o", "O", 31), plain("p", "P", 35), plain("lbracket", "[", 33), plain("rbracket", "]", 30)};
}

Row homeRun() {
    return {plain("a", "A", 0),  plain("s", "S", 1),          plain("d", "D", 2),     plain("f", "F", 3),
            plain("g", "G", 5),  plain("h", "H", 4),          plain("j", "J", 38),    plain("k", "K", 40),
            plain("l", "L", 37), plain("semicolon", ";", 41), plain("quote", "'", 39)};
}

Row lowerRun() {
    return {plain("z", "Z", 6),       plain("x", "X", 7),     plain("c", "C", 8),  plain("v", "V", 9),
            plain("b", "B", 11),      plain("n", "N", 45),    plain("m", "M", 46), plain("comma", ",", 43),
            plain("period", ".", 47), plain("slash", "/", 44)};
}

Row bottomRow() {
    // U+FE0E keeps the sideways triangles from being drawn as emoji.
    return {modifier("fn", "fn", 63),
            modifier("control", "control", 59),
            modifier("option", "option", 58),
            modifier("command", "command", 55, 1.25),
            plain("space", "", 49, 5.5),
            modifier("rcommand", "command", 54, 1.25),
            modifier("roption", "option", 61),
            plain("left", "◀\uFE0E", 123),
            KeyStack{plain("up", "▲", 126), plain("down", "▼", 125)},
            plain("right", "▶\uFE0E", 124)};
}

std::vector<Row> ansiRows() {
    return {functionRow(),
            row({plain("grave", "`", 50)}, digitRun(), {plain("delete", "delete", 51, 2)}),
            row({plain("tab", "tab", 48, 1.5)}, upperRun(), {plain("backslash", "\\", 42, 1.5)}),
            row({modifier("caps", "caps lock", 57, 1.75)}, homeRun(), {plain("return", "return", 36, 2.25)}),
            row({modifier("shift", "shift", 56, 2.25)}, lowerRun(), {modifier("rshift", "shift", 60, 2.75)}),
            bottomRow()};
}

std::vector<Row> isoRows() {
    // The tall return key is drawn as two keys on two rows; the lower half has no label.
    return {functionRow(),
            row({plain("section", "§", 10)}, digitRun(), {plain("delete", "delete", 51, 2)}),
            row({plain("tab", "tab", 48, 1.5)}, upperRun(), {plain("return", "return", 36, 1.5)}),
            row({modifier("caps", "caps lock", 57, 1.75)}, homeRun(),
                {plain("backslash", "\\", 42), plain("return", "", 36, 1.25)}),
            row({modifier("shift", "shift", 56, 1.25), plain("grave", "`", 50)}, lowerRun(),
                {modifier("rshift", "shift", 60, 2.75)}),
            bottomRow()};
}

} // namespace

KeyboardLayout::KeyboardLayout(ID id, std::vector<Row> rows) : id(id), rows(std::move(rows)) {
    std::set<std::string_view> seen;
    const auto once = [&](const KeySpec& key) {
        if (!seen.insert(key.id).second) return;
        m_keys.push_back(key);
        if (!key.code || key.kind == KeyKind::manual) return;
        m_testableKeys.push_back(key);
        m_codes.insert(*key.code);
    };
    for (const Row& row : this->rows)
        for (const KeySlot& slot : row) {
            if (const auto* stack = std::get_if<KeyStack>(&slot)) {
                once(stack->upper);
                once(stack->lower);
            } else {
                once(std::get<KeySpec>(slot));
            }
        }
}

const KeyboardLayout& KeyboardLayout::ansi() {
    static const KeyboardLayout layout(ID::ansi, ansiRows());
    return layout;
}

const KeyboardLayout& KeyboardLayout::iso() {
    static const KeyboardLayout layout(ID::iso, isoRows());
    return layout;
}

const KeyboardLayout& KeyboardLayout::named(ID id) {
    return id == ID::iso ? iso() : ansi();
}

const char* KeyboardLayout::title(ID id) {
    return id == ID::iso ? "International (ISO)" : "US (ANSI)";
}

std::optional<KeySpec> KeyboardLayout::key(KeyCode code) const {
    const auto found = std::ranges::find(m_keys, std::optional(code), &KeySpec::code);
    return found == m_keys.end() ? std::nullopt : std::optional(*found);
}

const std::vector<ManualKeyCheck>& ManualKeyCheck::all() {
    static const std::vector<ManualKeyCheck> checks = {
        {"touchID", "Touch ID or power key",
         "In System Settings › Touch ID & Password, choose Add Fingerprint and touch the key; the print "
         "should start filling in. Then cancel."},
        {"specialKeys", "Top-row special keys",
         "Without fn, press brightness, volume and the media keys; macOS should show or play each change."},
        {"backlight", "Keyboard backlight",
         "In a dim room, turn Keyboard Brightness up in Control Center; every key should light evenly."},
    };
    return checks;
}

} // namespace tessivo

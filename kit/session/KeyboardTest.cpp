#include "kit/session/KeyboardTest.h"

#include <algorithm>

namespace tessivo {

void KeyboardTest::press(KeyCode code) {
    pressed.insert(code);
}

void KeyboardTest::toggleHandChecked(KeyCode code) {
    if (handChecked.erase(code) == 0) handChecked.insert(code);
}

bool KeyboardTest::isDone(KeyCode code) const {
    return pressed.contains(code) || handChecked.contains(code);
}

bool KeyboardTest::started() const {
    return !pressed.empty() || !handChecked.empty() || std::ranges::any_of(manual, [](const auto& entry) {
        return entry.second != ManualAnswer::unanswered;
    });
}

KeyboardTest::Progress KeyboardTest::progress() const {
    const std::set<KeyCode>& codes = KeyboardLayout::named(layout).codes();
    return {std::ranges::count_if(codes, [this](KeyCode code) { return isDone(code); }),
            static_cast<std::int64_t>(codes.size())};
}

std::vector<KeySpec> KeyboardTest::remaining() const {
    std::vector<KeySpec> keys = KeyboardLayout::named(layout).testableKeys();
    std::erase_if(keys, [this](const KeySpec& key) { return isDone(*key.code); });
    return keys;
}

std::set<KeyCode> KeyboardTest::offDiagram() const {
    const std::set<KeyCode>& codes = KeyboardLayout::named(layout).codes();
    std::set<KeyCode> off;
    std::ranges::set_difference(pressed, codes, std::inserter(off, off.end()));
    return off;
}

ManualAnswer KeyboardTest::answer(const std::string& checkID) const {
    const auto found = manual.find(checkID);
    return found == manual.end() ? ManualAnswer::unanswered : found->second;
}

} // namespace tessivo

#pragma once

#include "kit/catalog/KeyboardLayout.h"
#include "kit/vocabulary/ManualAnswer.h"

#include <map>

namespace tessivo {

/// The state of the keyboard test. Nothing but a reset ever removes a pressed code.
struct KeyboardTest {
    struct Progress {
        std::int64_t done = 0;
        std::int64_t total = 0;
        bool operator==(const Progress&) const = default;
    };

    KeyboardLayout::ID layout = KeyboardLayout::ID::ansi;
    std::set<KeyCode> pressed;     ///< every code seen, on the diagram or not
    std::set<KeyCode> handChecked; ///< codes ticked by hand
    std::map<std::string, ManualAnswer> manual;

    void press(KeyCode code);
    void toggleHandChecked(KeyCode code);
    bool isDone(KeyCode code) const;
    bool started() const;
    Progress progress() const;
    std::vector<KeySpec> remaining() const;
    std::set<KeyCode> offDiagram() const;
    ManualAnswer answer(const std::string& checkID) const;

    bool operator==(const KeyboardTest&) const = default;
};
BOOST_DESCRIBE_STRUCT(KeyboardTest, (), (layout, pressed, handChecked, manual))

} // namespace tessivo

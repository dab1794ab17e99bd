#pragma once

#include "kit/support/Describe.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <variant>
#include <vector>

namespace tessivo {

using KeyCode = std::uint16_t; ///< virtual key code of the Mac's keyboard

enum class KeyKind { normal, modifier, function, manual };

/// One key of a diagram. Width is in key units, a plain key being 1.
struct KeySpec {
    std::string id;
    std::string label;
    std::optional<KeyCode> code;
    double width = 1;
    KeyKind kind = KeyKind::normal;

    /// The label, or the id where the label is empty.
    const std::string& name() const { return label.empty() ? id : label; }

    bool operator==(const KeySpec&) const = default;
};

/// Two keys drawn one over the other in the height of one.
struct KeyStack {
    KeySpec upper;
    KeySpec lower;

    bool operator==(const KeyStack&) const = default;
};

using KeySlot = std::variant<KeySpec, KeyStack>;

/// A keyboard diagram: rows of slots in reading order. Constants of the process, any thread.
struct KeyboardLayout {
    enum class ID { ansi, iso };
    BOOST_DESCRIBE_NESTED_ENUM(ID, ansi, iso)

    ID id{};
    std::vector<std::vector<KeySlot>> rows;

    static const KeyboardLayout& ansi();
    static const KeyboardLayout& iso();
    static const KeyboardLayout& named(ID id);
    /// "US (ANSI)" or "International (ISO)".
    static const char* title(ID id);

    /// Every key once, in reading order; of the tall ISO return key the upper half.
    std::vector<KeySpec> keys() const;
    /// The keys that count: those with a code that aren't manual.
    std::vector<KeySpec> testableKeys() const;
    std::set<KeyCode> codes() const;
    std::optional<KeySpec> key(KeyCode code) const;
};

/// One thing that can't be seen through key events and is answered by hand.
struct ManualKeyCheck {
    std::string id;
    std::string title;
    std::string how;

    static const std::vector<ManualKeyCheck>& all();
};

} // namespace tessivo

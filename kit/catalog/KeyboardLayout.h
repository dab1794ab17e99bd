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
class KeyboardLayout final {
public:
    enum class ID { ansi, iso };
    BOOST_DESCRIBE_NESTED_ENUM(ID, ansi, iso)

    using Row = std::vector<KeySlot>;

    const ID id;
    const std::vector<Row> rows;

    static const KeyboardLayout& ansi();
    static const KeyboardLayout& iso();
    static const KeyboardLayout& named(ID id);
    /// "US (ANSI)" or "International (ISO)".
    static const char* title(ID id);

    /// Every key once, in reading order; of the tall ISO return key the upper half.
    const std::vector<KeySpec>& keys() const { return m_keys; }
    /// The keys that count: those with a code that aren't manual.
    const std::vector<KeySpec>& testableKeys() const { return m_testableKeys; }
    const std::set<KeyCode>& codes() const { return m_codes; }
    std::optional<KeySpec> key(KeyCode code) const;

private:
    KeyboardLayout(ID id, std::vector<Row> rows);

    std::vector<KeySpec> m_keys;
    std::vector<KeySpec> m_testableKeys;
    std::set<KeyCode> m_codes;
};

/// One thing that can't be seen through key events and is answered by hand.
struct ManualKeyCheck {
    std::string id;
    std::string title;
    std::string how;

    static const std::vector<ManualKeyCheck>& all();
};

} // namespace tessivo

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tessivo {

/// A text that is searched as a reader sees it: by whole user-perceived characters, where "í" is the same
/// letter whether it is one code point or two, and a final sigma is a sigma. Case counts. Any thread.
class CharacterText final {
public:
    explicit CharacterText(std::string_view text);

    /// Whether the phrase stands anywhere in the text; an empty one always does.
    bool contains(std::string_view phrase) const;

    /// Whether the phrase stands somewhere with neither a letter nor a number touching it.
    bool containsWord(std::string_view phrase) const;

private:
    std::optional<std::size_t> find(std::string_view canonicalPhrase, std::size_t from) const;
    bool isBoundary(std::size_t at) const;

    std::string m_text;
};

} // namespace tessivo

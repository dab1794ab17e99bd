#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessivo {

/// A text that is searched for what a rewording must keep and what it mustn't say. "í" is the same letter
/// whether it is one code point or two, and a final sigma is a sigma; case counts. What is said
/// is found whatever further marks its letters carry: "nuevõ" and "nuëvo" say "nuevo", though "garantia"
/// doesn't say "garantía". Any thread.
class CharacterText final {
public:
    explicit CharacterText(std::string_view text);

    /// Whether the phrase stands in the text in whole user-perceived characters, as what is kept must: a
    /// mark or a joiner put on its last letter changes it. An empty one always does.
    bool keeps(std::string_view phrase) const;

    /// Whether the phrase stands in the text at all: no mark put on its last letter hides what is said.
    bool says(std::string_view phrase) const;

    /// The same, with neither a letter nor a number touching the phrase.
    bool saysWord(std::string_view phrase) const;

    /// The text as it is read: without what can't be seen, such as control characters, and with letters and
    /// signs of another make (wide, bold, joined, circled) as the plain ones.
    static std::string inPlainLetters(std::string_view text);

private:
    bool isBoundary(std::size_t at) const;

    std::string m_text;                ///< letters and their marks joined
    std::string m_letters;             ///< each mark behind its letter
    std::vector<std::size_t> m_starts; ///< places in it where a word may begin
};

} // namespace tessivo

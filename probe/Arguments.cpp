#include "probe/Arguments.h"

namespace tessivo {

Arguments::Arguments(const std::vector<std::string>& words, const std::set<std::string>& options,
                     const std::set<std::string>& flags) {
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        const bool isOption = options.contains(word);
        if (!isOption && !flags.contains(word)) {
            if (word.starts_with("--")) throw UsageError("unknown option " + word);
            m_words.push_back(word);
            continue;
        }
        if (isOption && i + 1 == words.size()) throw UsageError(word + " needs a value");
        if (!m_values.emplace(word, isOption ? words[++i] : std::string()).second)
            throw UsageError(word + " is given twice");
    }
}

std::optional<std::string> Arguments::value(const std::string& option) const {
    const auto entry = m_values.find(option);
    if (entry == m_values.end()) return std::nullopt;
    return entry->second;
}

std::string Arguments::need(const std::string& option) const {
    if (auto given = value(option)) return *given;
    throw UsageError(option + " is missing");
}

const std::vector<std::string>& Arguments::words(std::size_t count) const {
    if (m_words.size() > count) throw UsageError("too many words: " + m_words[count]);
    if (m_words.size() < count) throw UsageError("a name is missing");
    return m_words;
}

} // namespace tessivo

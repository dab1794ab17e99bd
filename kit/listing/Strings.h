#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tessivo::Strings {

/// The text of a key in the language in force, each "%@" filled with the next argument as it stands.
/// Without arguments the text isn't treated as a format. A key that isn't in the table stays itself.
std::string tr(const std::string& key, const std::vector<std::string>& arguments = {});

/// A language table from its JSON: an object of texts. Anything else gives an empty table.
std::map<std::string, std::string> parseTable(std::string_view json);

} // namespace tessivo::Strings

namespace tessivo::Numbers {

/// The number tokens of a text, unique and in plain text order: "16", "14,2", "1.2.3".
std::vector<std::string> find(std::string_view text);

} // namespace tessivo::Numbers

#pragma once

#include <filesystem>
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

/// The table of the first of these files that exists. Empty without one, or when it can't be read.
std::map<std::string, std::string> loadTable(const std::vector<std::filesystem::path>& files);

/// Where the Spanish table may stand, in order: in the bundle folder beside the program, in that of an
/// installed program's shared data, in the source tree.
std::vector<std::filesystem::path> tableFiles();

} // namespace tessivo::Strings

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

/// The folder in which the bundle with the Spanish table lies, set once, before the first text. Without it,
/// or without the table there, the source tree's serves.
void setResources(std::filesystem::path folder);
/// Where the table stands in such a folder.
std::filesystem::path tableFile(const std::filesystem::path& resources);

} // namespace tessivo::Strings

#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The numbers that a text speaks of. Pure, any thread.
namespace tessivo::Numbers {

/// The number tokens of a text, unique and in plain text order: runs of decimal digits of any script,
/// joined by single points and commas ("16", "14,2", "1.2.3"). A sign or a unit is no part of one.
std::vector<std::string> find(std::string_view text);

} // namespace tessivo::Numbers

#pragma once

#include <optional>
#include <string>
#include <vector>

/// What the `compatible` entries of a device tree tell of a Mac with Apple silicon, such as "apple,j413",
/// "apple,t8112", "apple,arm-platform". Pure, any thread.
namespace tessivo::Boards {

/// The entries of the raw property: texts that each end with a zero byte. Empty ones are left out.
std::vector<std::string> entries(const std::string& property);

/// Whether the tree is that of an Apple machine with ARM processors.
bool isApplePlatform(const std::vector<std::string>& compatible);

/// The model identifier of the board, the first entry: "Mac14,2". Nothing for a board that isn't known.
std::optional<std::string> modelID(const std::vector<std::string>& compatible);

/// The chip, the second entry: "Apple M2". On an Apple platform a chip that isn't known is "Apple silicon",
/// which is all that is certain of it; elsewhere nothing.
std::optional<std::string> chip(const std::vector<std::string>& compatible);

} // namespace tessivo::Boards

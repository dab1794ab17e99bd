#pragma once

#include <optional>
#include <string>

namespace tessivo::ProbeOutput {

enum class Content { text, binary };

/// Writes to the file, or to standard output where there is none, with every step checked. A regular file
/// is replaced whole or left as it was. Throws std::runtime_error or std::system_error.
void write(const std::string& bytes, Content content, const std::optional<std::string>& file);

} // namespace tessivo::ProbeOutput

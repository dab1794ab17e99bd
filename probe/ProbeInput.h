#pragma once

#include <cstdint>
#include <string>

namespace tessivo::ProbeInput {

/// The bytes of a file of at most `largest` bytes. "-" is standard input; it and a pipe are read to their
/// end. Throws std::system_error or std::runtime_error, which names the input and the fault.
std::string read(const std::string& file, std::uintmax_t largest);

} // namespace tessivo::ProbeInput

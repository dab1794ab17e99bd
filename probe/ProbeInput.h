#pragma once

#include "kit/support/Json.h"

#include <cstdint>
#include <stdexcept>
#include <string>

namespace tessivo::ProbeInput {

/// The bytes of a file of at most `largest` bytes. "-" is standard input; it and a pipe are read to their
/// end. Throws std::system_error or std::runtime_error, which names the input and the fault.
std::string read(const std::string& file, std::uintmax_t largest);

/// The same, decoded. A DecodingError becomes a std::runtime_error, which names the input too.
template <class Decode>
auto decoded(const std::string& file, Decode decode, std::uintmax_t largest) {
    const std::string bytes = read(file, largest);
    try {
        return decode(bytes);
    } catch (const DecodingError& error) {
        throw std::runtime_error((file == "-" ? "standard input" : file) + ": " + error.what());
    }
}

} // namespace tessivo::ProbeInput

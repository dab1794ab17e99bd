#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

/// Reading and writing files with every step checked. Any thread.
namespace tessivo::Files {

/// The bytes of a regular file of at most `largest` bytes. Throws std::system_error for anything else:
/// a folder, a FIFO or a device is refused without being opened for good.
std::string read(const std::filesystem::path& file, std::uintmax_t largest);

/// Replaces the file whole, or leaves it as it was: a hidden temporary file beside it, written, synced
/// and renamed, then the folder synced. Throws std::system_error; no stray file stays behind.
void writeAtomically(const std::filesystem::path& file, std::string_view bytes);

} // namespace tessivo::Files

#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

/// Reading and writing files with every step checked. Any thread.
namespace tessivo::Files {

/// The system calls that change something, each as the system's own: -1 and `errno` for a failure.
/// Whoever wants to see a write fail overrides one.
class Calls {
public:
    virtual ~Calls() = default;
    virtual int open(const char* path, int flags, unsigned mode);
    virtual std::ptrdiff_t write(int file, const char* bytes, std::size_t count);
    virtual int sync(int file);
    virtual int close(int file);
    virtual int rename(const char* from, const char* to);
    virtual int remove(const char* path);
    virtual int makeFolder(const char* path, unsigned mode);
};

/// What `Calls::sync` does from now on in place of the system's `fsync`, with the same results: for a system
/// where that leaves bytes in the drive's own memory. To be set before anything is written.
void setSync(int (*sync)(int file));

/// The bytes of a regular file of at most `largest` bytes, links followed. Throws std::system_error for
/// anything else: a folder, a FIFO or a device is refused without being opened.
std::string read(const std::filesystem::path& file, std::uintmax_t largest);
/// The same into a text that is used again for the next file; after a fault it holds nothing of use.
void read(const std::filesystem::path& file, std::uintmax_t largest, std::string& bytes);

/// Replaces the file whole, or leaves it as it was: a hidden temporary file beside it, written, synced
/// and renamed, then the folder synced. Throws std::system_error; no stray file stays behind. Only when
/// the last step, the sync of the folder, fails does the new file already stand in the old one's place.
void writeAtomically(const std::filesystem::path& file, std::string_view bytes);
void writeAtomically(const std::filesystem::path& file, std::string_view bytes, Calls& calls);

/// Makes the folder with its missing parents, each synced into its own. Throws std::system_error; a folder
/// that exists is no error.
void createFolders(const std::filesystem::path& folder, Calls& calls);

/// Removes the temporary files that killed writes left in the folder an hour ago or earlier. Never throws.
void removeStrays(const std::filesystem::path& folder) noexcept;

} // namespace tessivo::Files

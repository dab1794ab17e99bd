#include "kit/support/Files.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <random>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace tessivo::Files {

namespace {

using std::filesystem::path;

constexpr std::string_view strayPrefix = ".tessivo-";
constexpr std::string_view straySuffix = ".saving";
constexpr std::size_t strayDigits = 16;
constexpr auto strayAge = std::chrono::hours(1);

int (*currentSync)(int file) = ::fsync;

[[noreturn]] void fail(int error, const std::string& doing, const path& file) {
    throw std::system_error(error, std::generic_category(), doing + " “" + file.string() + "”");
}

[[noreturn]] void fail(std::errc error, const std::string& doing, const path& file) {
    fail(int(error), doing, file);
}

template <class Call>
auto retried(Call call) {
    decltype(call()) result;
    do
        result = call();
    while (result == -1 && errno == EINTR);
    return result;
}

/// Closes its file when it goes, unless that was done before with its result looked at.
class Descriptor {
public:
    Descriptor(int file, Calls& calls) : m_file(file), m_calls(calls) {}
    ~Descriptor() {
        if (m_file >= 0) m_calls.close(m_file);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int get() const { return m_file; }
    bool isOpen() const { return m_file >= 0; }
    /// An interrupted close has closed nevertheless.
    bool close() { return m_calls.close(std::exchange(m_file, -1)) == 0 || errno == EINTR; }

private:
    int m_file;
    Calls& m_calls;
};

path folderOf(const path& file) {
    return file.has_parent_path() ? file.parent_path() : path(".");
}

std::string randomDigits() {
    std::random_device source;
    std::string digits;
    while (digits.size() < strayDigits)
        digits += "0123456789abcdef"[source() % 16];
    return digits;
}

bool isStrayName(std::string_view name) {
    if (name.size() != strayPrefix.size() + strayDigits + straySuffix.size()) return false;
    return name.starts_with(strayPrefix) && name.ends_with(straySuffix) &&
           name.substr(strayPrefix.size(), strayDigits).find_first_not_of("0123456789abcdef") ==
               std::string_view::npos;
}

/// Folders that can be written but not read can't be synced, and some file systems can't do it at all:
/// that alone is no reason to refuse a save.
Descriptor openFolder(const path& folder, Calls& calls) {
    const int file =
        retried([&] { return calls.open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0); });
    if (file < 0 && errno != EACCES) fail(errno, "can't open the folder", folder);
    return {file, calls};
}

void syncFolder(Descriptor& folder, const path& name, Calls& calls) {
    if (!folder.isOpen()) return;
    if (retried([&] { return calls.sync(folder.get()); }) < 0 && errno != EINVAL && errno != ENOTSUP)
        fail(errno, "can't sync the folder", name);
}

void writeAll(const Descriptor& file, std::string_view bytes, const path& name, Calls& calls) {
    while (!bytes.empty()) {
        const auto written = retried([&] { return calls.write(file.get(), bytes.data(), bytes.size()); });
        if (written <= 0) fail(written < 0 ? errno : EIO, "can't write", name);
        bytes.remove_prefix(std::size_t(written));
    }
}

/// What a new file may be used for: as the one it replaces, else what the user's mask leaves.
unsigned modeFor(const path& file) {
    struct stat status{};
    if (::stat(file.c_str(), &status) == 0 && S_ISREG(status.st_mode)) return (status.st_mode & 0777) | 0600;
    return 0666;
}

/// A new hidden file beside the one to be written; removed when it goes, unless it was renamed.
class Temporary {
public:
    Temporary(const path& target, Calls& calls) : m_calls(calls), m_descriptor(create(target), calls) {}
    ~Temporary() {
        if (!m_path.empty()) m_calls.remove(m_path.c_str());
    }
    Temporary(const Temporary&) = delete;
    Temporary& operator=(const Temporary&) = delete;

    Descriptor& descriptor() { return m_descriptor; }

    void moveTo(const path& target) {
        if (m_calls.rename(m_path.c_str(), target.c_str()) < 0) fail(errno, "can't replace", target);
        m_path.clear();
    }

private:
    int create(const path& target) {
        const unsigned mode = modeFor(target);
        for (int attempt = 0;; ++attempt) {
            const path name =
                folderOf(target) / (std::string(strayPrefix) + randomDigits() + std::string(straySuffix));
            const int file = retried([&] {
                return m_calls.open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode);
            });
            if (file >= 0) {
                m_path = name;
                return file;
            }
            if (errno != EEXIST || attempt == 8) fail(errno, "can't write", target);
        }
    }

    Calls& m_calls;
    path m_path;
    Descriptor m_descriptor;
};

/// Refuses everything but a regular file within the bound.
void check(const struct stat& status, const path& file, std::uintmax_t largest) {
    if (S_ISDIR(status.st_mode)) fail(std::errc::is_a_directory, "can't read", file);
    if (!S_ISREG(status.st_mode))
        fail(std::errc::operation_not_supported, "can't read what is no file", file);
    if (std::uintmax_t(status.st_size) > largest) fail(std::errc::file_too_large, "can't read", file);
}

} // namespace

int Calls::open(const char* path, int flags, unsigned mode) {
    return ::open(path, flags, mode_t(mode));
}
std::ptrdiff_t Calls::write(int file, const char* bytes, std::size_t count) {
    return ::write(file, bytes, count);
}
int Calls::sync(int file) {
    return currentSync(file);
}
int Calls::close(int file) {
    return ::close(file);
}
int Calls::rename(const char* from, const char* to) {
    return ::rename(from, to);
}
int Calls::remove(const char* path) {
    return ::unlink(path);
}
int Calls::makeFolder(const char* path, unsigned mode) {
    return ::mkdir(path, mode_t(mode));
}

void setSync(int (*sync)(int file)) {
    currentSync = sync;
}

std::string read(const path& file, std::uintmax_t largest) {
    std::string bytes;
    read(file, largest, bytes);
    return bytes;
}

void read(const path& file, std::uintmax_t largest, std::string& bytes) {
    struct stat status{};
    // Looked at before it is opened: merely opening a FIFO or a device can do something.
    if (::stat(file.c_str(), &status) < 0) fail(errno, "can't read", file);
    check(status, file, largest);
    Calls calls;
    const Descriptor descriptor(
        retried([&] { return ::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY); }), calls);
    if (!descriptor.isOpen() || ::fstat(descriptor.get(), &status) < 0) fail(errno, "can't read", file);
    check(status, file, largest);

    // One byte more than expected: growth is noticed, and the end is seen without a second buffer.
    const auto expected = std::size_t(status.st_size);
    if (bytes.size() < expected + 1) bytes.resize(expected + 1);
    std::size_t filled = 0;
    while (true) {
        const std::size_t room = bytes.size() - filled;
        const auto count = retried([&] { return ::read(descriptor.get(), bytes.data() + filled, room); });
        if (count < 0) fail(errno, "can't read", file);
        filled += std::size_t(count);
        if (filled > largest) fail(std::errc::file_too_large, "can't read", file);
        if (count == 0 || (filled == expected && std::size_t(count) < room)) break;
        if (filled == bytes.size())
            bytes.resize(std::min<std::uintmax_t>(bytes.size() * 2 + 4096, largest + 1));
    }
    bytes.resize(filled);
}

void writeAtomically(const path& file, std::string_view bytes) {
    Calls calls;
    writeAtomically(file, bytes, calls);
}

void writeAtomically(const path& file, std::string_view bytes, Calls& calls) {
    const path folder = folderOf(file);
    Descriptor folderDescriptor = openFolder(folder, calls);
    Temporary temporary(file, calls);
    writeAll(temporary.descriptor(), bytes, file, calls);
    if (retried([&] { return calls.sync(temporary.descriptor().get()); }) < 0)
        fail(errno, "can't sync", file);
    if (!temporary.descriptor().close()) fail(errno, "can't write", file);
    temporary.moveTo(file);
    syncFolder(folderDescriptor, folder, calls);
}

void createFolders(const path& folder, Calls& calls) {
    if (std::error_code error; folder.empty() || std::filesystem::is_directory(folder, error)) return;
    const path plain = folder.has_filename() ? folder : folder.parent_path();
    const path parent = folderOf(plain);
    if (parent != plain) createFolders(parent, calls);
    // Whoever else makes the same folder at the same moment is welcome.
    if (calls.makeFolder(plain.c_str(), 0777) < 0) {
        const int error = errno;
        if (std::error_code ignored; error == EEXIST && std::filesystem::is_directory(plain, ignored)) return;
        fail(error, "can't make the folder", plain);
    }
    Descriptor descriptor = openFolder(parent, calls);
    syncFolder(descriptor, parent, calls);
}

void removeStrays(const path& folder) noexcept try {
    std::error_code error;
    const auto now = std::filesystem::file_time_type::clock::now();
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        if (!isStrayName(entry->path().filename().native())) continue;
        std::error_code failure;
        if (!entry->is_regular_file(failure) || entry->is_symlink(failure)) continue;
        const auto written = std::filesystem::last_write_time(entry->path(), failure);
        if (!failure && now - written > strayAge) std::filesystem::remove(entry->path(), failure);
    }
} catch (...) { // out of memory: the strays stay for another time
}

} // namespace tessivo::Files

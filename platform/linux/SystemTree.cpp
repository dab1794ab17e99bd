#include "platform/linux/SystemTree.h"

#include "kit/support/Text.h"

#include <algorithm>
#include <charconv>
#include <fcntl.h>
#include <sys/stat.h>

namespace tessivo {

namespace {

constexpr auto outOfTheTree = std::errc::cross_device_link;

std::string message(const std::error_code& error) {
    return error == outOfTheTree ? "A link leads out of the captured tree" : error.message();
}

/// A path that isn't absolute begins at the folder. `errno` tells why there is nothing.
std::optional<std::string> readFile(int folder, const char* path, int flags) {
    // Not blocking: a pipe in place of a file must not hold the main thread.
    const Descriptor file(::openat(folder, path, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY | flags));
    struct stat status{};
    if (file < 0 || ::fstat(file, &status) != 0) return std::nullopt;
    if (!S_ISREG(status.st_mode)) {
        errno = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
        return std::nullopt;
    }
    std::string out;
    char buffer[4096];
    while (out.size() < SystemTree::largestFile) {
        const ssize_t count = ::read(file, buffer, sizeof buffer);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return std::nullopt;
        if (count == 0) break;
        out.append(buffer, std::size_t(count));
        // Only procfs, whose files claim no size, gives its text piece by piece.
        if (status.st_size > 0 && std::size_t(count) < sizeof buffer) break;
    }
    return out;
}

/// The same, with what came of it put on record.
std::optional<std::string> readFile(int folder, const char* path, int flags, SourceRecord* record,
                                    const std::string& recordedAs) {
    auto bytes = readFile(folder, path, flags);
    if (!record) return bytes;
    if (bytes)
        record->addText(recordedAs, *bytes);
    else
        record->addFault(recordedAs, std::generic_category().message(errno));
    return bytes;
}

/// The root itself counts. Both paths are canonical.
bool isBelow(const std::filesystem::path& root, const std::filesystem::path& path) {
    return std::mismatch(root.begin(), root.end(), path.begin(), path.end()).first == root.end();
}

std::optional<std::string> trimmedText(std::optional<std::string> raw) {
    if (!raw) return std::nullopt;
    // Device tree texts end with a zero byte.
    constexpr std::string_view ends("\0 \t\n\v\f\r", 7);
    raw->erase(raw->find_last_not_of(ends) + 1);
    raw->erase(0, raw->find_first_not_of(ends));
    // Nearly all is plain, and a scan of many devices reads a thousand of them.
    const bool isPlain = std::ranges::all_of(*raw, [](char c) { return (c & 0x80) == 0; });
    if (!isPlain) *raw = Text::trimmed(Text::repaired(*raw));
    if (raw->empty()) return std::nullopt;
    return raw;
}

} // namespace

std::optional<std::string> SystemFolder::text(const char* file) const {
    return trimmedText(
        readFile(m_folder, file, O_NOFOLLOW, m_record.get(), m_record ? m_path + "/" + file : std::string()));
}

std::optional<FolderStamp> SystemFolder::stamp(const std::string& name) const {
    constexpr std::int64_t second = 1'000'000'000;
    struct stat status{};
    if (::fstatat(m_folder, name.c_str(), &status, 0) != 0) return std::nullopt;
    return FolderStamp{status.st_dev, status.st_ino, status.st_ctim.tv_sec * second + status.st_ctim.tv_nsec,
                       status.st_mtim.tv_sec * second + status.st_mtim.tv_nsec};
}

SystemTree::SystemTree(std::filesystem::path root, std::shared_ptr<SourceRecord> record)
    : m_root(std::move(root)), m_record(std::move(record)) {
    std::error_code error;
    // A canonical root is what `resolved` can cut off again.
    if (auto canonical = std::filesystem::canonical(m_root, error); !error) m_root = std::move(canonical);
}

std::optional<std::filesystem::path> SystemTree::place(const std::string& path,
                                                       std::error_code& error) const {
    if (isThisComputer()) return m_root / path;
    auto whole = std::filesystem::canonical(m_root / path, error);
    if (!error && !isBelow(m_root, whole)) error = std::make_error_code(outOfTheTree);
    if (error) return std::nullopt;
    return whole;
}

std::optional<std::string> SystemTree::bytes(const std::string& path) const {
    std::error_code error;
    if (const auto file = place(path, error))
        return readFile(AT_FDCWD, file->c_str(), 0, m_record.get(), path);
    if (m_record) m_record->addFault(path, message(error));
    return std::nullopt;
}

std::optional<std::string> SystemTree::text(const std::string& path) const {
    return trimmedText(bytes(path));
}

std::optional<std::int64_t> SystemTree::number(const std::string& path, int base) const {
    const auto text = this->text(path);
    return text ? wholeNumber(*text, base) : std::nullopt;
}

bool SystemTree::exists(const std::string& path) const {
    std::error_code error;
    const auto file = place(path, error);
    return file && ::access(file->c_str(), F_OK) == 0;
}

std::optional<SystemFolder> SystemTree::folder(const std::string& path) const {
    std::error_code error;
    const auto there = place(path, error);
    if (!there) return std::nullopt;
    Descriptor folder(::open(there->c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (folder < 0) return std::nullopt;
    return SystemFolder(std::move(folder), path, m_record);
}

std::optional<std::vector<std::string>> SystemTree::names(const std::string& folder) const {
    std::error_code error;
    std::filesystem::directory_iterator entries;
    if (const auto there = place(folder, error)) entries = std::filesystem::directory_iterator(*there, error);
    if (error && m_record) m_record->addFault(folder, message(error));
    if (error) return std::nullopt;
    std::vector<std::string> names;
    for (; entries != std::filesystem::directory_iterator(); entries.increment(error))
        names.push_back(entries->path().filename().string());
    if (error) return std::nullopt;
    std::ranges::sort(names);
    return names;
}

std::optional<std::string> SystemTree::linkName(const std::string& path) const {
    std::error_code error;
    const std::filesystem::path link(path);
    const auto folder = place(link.parent_path().string(), error);
    if (!folder) return std::nullopt;
    const auto target = std::filesystem::read_symlink(*folder / link.filename(), error);
    if (error || target.filename().empty()) return std::nullopt;
    if (m_record) m_record->addLink(path, target.string());
    return target.filename().string();
}

std::optional<std::string> SystemTree::resolved(const std::string& path) const {
    std::error_code error;
    const auto whole = std::filesystem::canonical(m_root / path, error);
    if (error || !isBelow(m_root, whole)) return std::nullopt;
    const auto inside = whole.lexically_relative(m_root).string();
    if (m_record && inside != path) m_record->addLink(path, "/" + inside);
    return inside;
}

std::optional<std::int64_t> wholeNumber(std::string_view text, int base) {
    if (base == 16 && (text.starts_with("0x") || text.starts_with("0X"))) text.remove_prefix(2);
    std::int64_t value = 0;
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    if (fault != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

} // namespace tessivo

#pragma once

#include "platform/SourceRecord.h"
#include "platform/linux/Descriptor.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tessivo {

/// What tells one folder of a file system from every other, also from a later one of the same name: sysfs
/// numbers each of its folders anew, and none that was touched keeps its times.
struct FolderStamp {
    std::uint64_t device = 0, number = 0;
    std::int64_t changed = 0, modified = 0; ///< ns

    bool operator==(const FolderStamp&) const = default;
};

/// One folder, held open: all that is read of it is of the one device that it stands for, even if that goes
/// meanwhile and another takes its name. Reads as `SystemTree` does, but follows no link. Any thread.
class SystemFolder final {
public:
    SystemFolder(Descriptor folder, std::string path, std::shared_ptr<SourceRecord> record)
        : m_folder(std::move(folder)), m_path(std::move(path)), m_record(std::move(record)) {}

    std::optional<std::string> text(const char* file) const;
    /// Its own stamp, or that of a folder in it, or behind a link in it; nothing if there is none.
    std::optional<FolderStamp> stamp(const std::string& name = ".") const;

private:
    Descriptor m_folder;
    std::string m_path;
    std::shared_ptr<SourceRecord> m_record;
};

/// The files below a root folder in which Linux tells of itself: procfs, sysfs and /etc. Another root
/// than "/" is a captured tree. Paths are relative to the root, without a slash in front. Links are followed
/// as the system follows them; one that leads out of a captured tree leads nowhere, since what lies there is
/// of this computer.
/// Whatever can't be read (gone, refused, a device that doesn't answer, no regular file) is absent.
/// Short and synchronous, never waits for a writer. Any thread.
class SystemTree final {
public:
    /// No file is read beyond this many bytes.
    static constexpr std::size_t largestFile = 1u << 20;

    /// What is read goes into the record, where there is one; all copies share it.
    explicit SystemTree(std::filesystem::path root = "/", std::shared_ptr<SourceRecord> record = nullptr);

    bool isThisComputer() const { return m_root == "/"; }

    std::optional<std::string> bytes(const std::string& path) const;
    /// The file as valid UTF-8 without white space or zero bytes at its ends; nothing if that is empty.
    std::optional<std::string> text(const std::string& path) const;
    /// The file's text as one whole number; nothing if anything else stands in it.
    std::optional<std::int64_t> number(const std::string& path, int base = 10) const;

    bool exists(const std::string& path) const;
    /// Nothing if there is no such folder.
    std::optional<SystemFolder> folder(const std::string& path) const;
    /// Names in a folder, sorted; nothing if there is no such folder.
    std::optional<std::vector<std::string>> names(const std::string& folder) const;
    /// The last name of what a link points to: of ".../driver" the driver's name.
    std::optional<std::string> linkName(const std::string& path) const;
    /// The path with every link followed, again relative to the root.
    std::optional<std::string> resolved(const std::string& path) const;

private:
    /// Where to read a path, of a captured tree with every link followed. Nothing, and why, where that is out
    /// of the tree or not there.
    std::optional<std::filesystem::path> place(const std::string& path, std::error_code& error) const;

    std::filesystem::path m_root;
    std::shared_ptr<SourceRecord> m_record;
};

/// A text as one whole number ("0x" may lead where the base is 16), or nothing.
std::optional<std::int64_t> wholeNumber(std::string_view text, int base = 10);

} // namespace tessivo

#pragma once

#include "kit/support/Files.h"

#include <fcntl.h>
#include <fstream>
#include <map>
#include <string>
#include <vector>

namespace tessivo {

/// The real calls, each written down, so that the disk can be made again as a power cut could have left it.
/// A file's bytes are safe once it was synced, a name (made, renamed, removed) once its folder was.
class RecordedDisk final : public Files::Calls {
public:
    /// What becomes of bytes that were written and not synced.
    enum class Unsynced { lost, torn, zeros, kept };

    struct Step {
        enum class Kind { make, write, syncFile, rename, remove, makeFolder, syncFolder };
        Kind kind;
        std::string path; ///< of a file: the name it was made under
        std::string to;   ///< of a rename
        std::string bytes;
    };

    int open(const char* path, int flags, unsigned mode) override {
        const int file = Calls::open(path, flags, mode);
        if (file < 0) return file;
        m_open[file] = {path, (flags & O_DIRECTORY) != 0};
        if (flags & O_CREAT) steps.push_back({Step::Kind::make, path, {}, {}});
        return file;
    }
    std::ptrdiff_t write(int file, const char* bytes, std::size_t count) override {
        const auto written = Calls::write(file, bytes, std::min(count, longestWrite));
        if (written > 0)
            steps.push_back({Step::Kind::write, m_open[file].path, {}, {bytes, std::size_t(written)}});
        return written;
    }
    int sync(int file) override {
        const Open& open = m_open[file];
        steps.push_back({open.isFolder ? Step::Kind::syncFolder : Step::Kind::syncFile, open.path, {}, {}});
        return Calls::sync(file);
    }
    int rename(const char* from, const char* to) override {
        steps.push_back({Step::Kind::rename, from, to, {}});
        return Calls::rename(from, to);
    }
    int remove(const char* path) override {
        steps.push_back({Step::Kind::remove, path, {}, {}});
        return Calls::remove(path);
    }
    int makeFolder(const char* path, unsigned mode) override {
        steps.push_back({Step::Kind::makeFolder, path, {}, {}});
        return Calls::makeFolder(path, mode);
    }

    /// How many changes of names the first `count` steps made that no sync of a folder made safe.
    std::size_t unsafeNames(std::size_t count) const {
        std::size_t unsafe = 0;
        for (std::size_t i = 0; i < count; ++i) {
            if (steps[i].kind == Step::Kind::syncFolder)
                unsafe = 0;
            else if (isNaming(steps[i]))
                ++unsafe;
        }
        return unsafe;
    }

    /// Brings `folder`, which holds what it held before the first step, to where a cut after `count` steps
    /// leaves it: the last `lostNames` changes of names undone, bytes that weren't synced as told.
    void cut(const std::filesystem::path& folder, std::size_t count, std::size_t lostNames,
             Unsynced unsynced) const {
        std::map<std::string, std::pair<std::string, std::string>> files; // as made: safe bytes, all bytes
        std::size_t names = 0;
        for (std::size_t i = 0; i < count; ++i)
            names += isNaming(steps[i]);
        const std::size_t kept = names - lostNames;
        for (std::size_t i = 0; i < count; ++i) {
            auto& [safe, all] = files[steps[i].path];
            if (steps[i].kind == Step::Kind::write) all += steps[i].bytes;
            if (steps[i].kind == Step::Kind::syncFile) safe = all;
        }
        names = 0;
        for (std::size_t i = 0; i < count; ++i) {
            const Step& step = steps[i];
            if (!isNaming(step) || ++names > kept) continue;
            const auto here = [&](const std::string& path) {
                return folder / std::filesystem::path(path).filename();
            };
            if (step.kind == Step::Kind::make) {
                const auto& [safe, all] = files[step.path];
                std::ofstream(here(step.path), std::ios::binary) << left(safe, all, unsynced);
            } else if (step.kind == Step::Kind::rename) {
                std::filesystem::rename(here(step.path), here(step.to));
            } else {
                std::filesystem::remove(here(step.path));
            }
        }
    }

    std::vector<Step> steps;
    std::size_t longestWrite = SIZE_MAX; ///< more than this is cut short, as a disk may do

private:
    struct Open {
        std::string path;
        bool isFolder = false;
    };

    static bool isNaming(const Step& step) {
        return step.kind == Step::Kind::make || step.kind == Step::Kind::rename ||
               step.kind == Step::Kind::remove;
    }
    static std::string left(const std::string& safe, const std::string& all, Unsynced unsynced) {
        switch (unsynced) {
        case Unsynced::lost:
            return safe;
        case Unsynced::torn:
            return all.substr(0, safe.size() + (all.size() - safe.size()) / 2);
        case Unsynced::zeros:
            return safe + std::string(all.size() - safe.size(), '\0');
        case Unsynced::kept:
            break;
        }
        return all;
    }

    std::map<int, Open> m_open;
};

} // namespace tessivo

#pragma once

#include "kit/support/Files.h"

#include <cerrno>
#include <optional>
#include <string>
#include <vector>

namespace tessivo {

/// The real calls, of which the one with the number `failing` (from 0) fails with `error`. It keeps count,
/// so that a run without a fault tells how many there are to fail.
class FaultyCalls final : public Files::Calls {
public:
    std::optional<std::size_t> failing;
    int error = EIO;
    std::size_t longestWrite = SIZE_MAX; ///< more than this is cut short, as a full pipe or disk would
    std::vector<std::string> made;       ///< what was called, in order

    int open(const char* path, int flags, unsigned mode) override {
        return fails("open") ? -1 : Calls::open(path, flags, mode);
    }
    std::ptrdiff_t write(int file, const char* bytes, std::size_t count) override {
        return fails("write") ? -1 : Calls::write(file, bytes, std::min(count, longestWrite));
    }
    int sync(int file) override { return fails("sync") ? -1 : Calls::sync(file); }
    int close(int file) override {
        // A close that fails has let go of the file all the same.
        const int result = Calls::close(file);
        return fails("close") ? -1 : result;
    }
    int rename(const char* from, const char* to) override {
        return fails("rename") ? -1 : Calls::rename(from, to);
    }
    int remove(const char* path) override {
        made.push_back("remove"); // the way out of a fault isn't made to fail itself
        return Calls::remove(path);
    }
    int makeFolder(const char* path, unsigned mode) override {
        return fails("makeFolder") ? -1 : Calls::makeFolder(path, mode);
    }

private:
    bool fails(const char* name) {
        made.push_back(name);
        if (failing != made.size() - 1) return false;
        errno = error;
        return true;
    }
};

} // namespace tessivo

#pragma once

#include <csignal>
#include <sys/resource.h>

namespace tessivo {

/// While it lives no file grows beyond this size, as on a disk without room.
class FullDisk final {
public:
    explicit FullDisk(rlim_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit bound{bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &bound);
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &m_before); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_before{};
};

} // namespace tessivo

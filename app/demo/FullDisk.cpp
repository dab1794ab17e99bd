#include "app/demo/FullDisk.h"

#include <csignal>
#include <sys/resource.h>

namespace tessivo::demo {

void setDiskFull(bool full) {
    rlimit limit{};
    if (::getrlimit(RLIMIT_FSIZE, &limit) != 0) return;
    // The write itself is to fail, not the process.
    ::signal(SIGXFSZ, SIG_IGN);
    limit.rlim_cur = full ? 0 : limit.rlim_max;
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

} // namespace tessivo::demo

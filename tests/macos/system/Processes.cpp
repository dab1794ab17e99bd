#include "tests/macos/system/StandIn.h"

#include <cerrno>
#include <fcntl.h>
#include <fstream>
#include <libproc.h>
#include <mutex>
#include <poll.h>
#include <spawn.h>
#include <sys/event.h>
#include <sys/eventfd.h>
#include <sys/wait.h>
#include <unistd.h>

#undef fcntl
#undef posix_spawn
#undef posix_spawnattr_setflags

using namespace tessivo;

namespace {

StandIn& mac() {
    return StandIn::shared();
}

/// What each queue watches, by its descriptor. A queue of an earlier time may have had the same one.
struct Queues {
    std::mutex mutex;
    std::map<int, std::vector<struct kevent>> watched;
};

Queues& queues() {
    static Queues queues;
    return queues;
}

bool hasEnded(pid_t child) {
    siginfo_t info{};
    return ::waitid(P_PID, id_t(child), &info, WEXITED | WNOHANG | WNOWAIT) != 0 || info.si_pid == child;
}

thread_local bool closesAll = false; ///< as the attributes that were set last ask

} // namespace

int kqueue() {
    if (!mac().enters("kqueue")) return errno = EMFILE, -1;
    const int queue = ::eventfd(0, EFD_CLOEXEC);
    const std::lock_guard lock(queues().mutex);
    queues().watched[queue].clear();
    return queue;
}

int kevent(int queue, const struct kevent* changes, int changeCount, struct kevent* events, int eventCount,
           const timespec*) {
    if (!mac().enters("kevent")) return errno = ENOMEM, -1;
    std::vector<struct kevent> watched;
    {
        const std::lock_guard lock(queues().mutex);
        auto& all = queues().watched[queue];
        for (const struct kevent* change = changes; change != changes + changeCount; ++change) {
            // A process that has ended can't be found any more, though nobody has taken its status.
            if (change->filter == EVFILT_PROC && hasEnded(pid_t(change->ident))) return errno = ESRCH, -1;
            std::erase_if(all, [&](const auto& each) {
                return each.ident == change->ident && each.filter == change->filter;
            });
            if (change->flags & EV_ADD) all.push_back(*change);
        }
        watched = all;
    }
    int count = 0;
    while (eventCount > 0 && count == 0)
        for (const struct kevent& each : watched) {
            pollfd file{each.filter == EVFILT_READ ? int(each.ident) : -1, POLLIN, 0};
            const bool ready =
                ::poll(&file, 1, 1) > 0 || (each.filter == EVFILT_PROC && hasEnded(pid_t(each.ident)));
            if (ready && count < eventCount) events[count++] = each;
        }
    return count;
}

int proc_listchildpids(pid_t parent, void* buffer, int size) {
    if (!mac().enters("proc_listchildpids")) return -1;
    std::ifstream list("/proc/" + std::to_string(parent) + "/task/" + std::to_string(parent) + "/children");
    int count = 0;
    for (pid_t child; list >> child; ++count)
        if (buffer && (count + 1) * int(sizeof child) <= size) static_cast<pid_t*>(buffer)[count] = child;
    return buffer ? std::min(count, size / int(sizeof(pid_t))) : count + 20;
}

int standInSetFlags(posix_spawnattr_t* attributes, int flags) {
    closesAll = (flags & POSIX_SPAWN_CLOEXEC_DEFAULT) != 0;
    return ::posix_spawnattr_setflags(attributes, short(flags & ~POSIX_SPAWN_CLOEXEC_DEFAULT));
}

int standInSpawn(pid_t* child, const char* path, const posix_spawn_file_actions_t* files,
                 const posix_spawnattr_t* attributes, char* const arguments[], char* const environment[]) {
    if (!mac().enters("posix_spawn")) return ENOMEM;
    auto* const actions = const_cast<posix_spawn_file_actions_t*>(files);
    if (closesAll) posix_spawn_file_actions_addclosefrom_np(actions, STDERR_FILENO + 1);
    const auto tool = mac().tools.find(path);
    if (tool == mac().tools.end())
        return ::posix_spawn(child, path, files, attributes, arguments, environment);
    std::string output = tool->second.output.value_or("");
    std::string status = std::to_string(tool->second.exitStatus);
    char sh[] = "sh", c[] = "-c", script[] = "printf %s \"$0\"; exit $1";
    char* const scripted[] = {sh, c, script, output.data(), status.data(), nullptr};
    return ::posix_spawn(child, "/bin/sh", files, attributes, scripted, environment);
}

int standInFcntl(int file, int command, int argument) {
    if (command != F_FULLFSYNC) return ::fcntl(file, command, argument);
    ++mac().fullSyncs;
    errno = mac().fullSyncFault;
    return errno ? -1 : 0;
}

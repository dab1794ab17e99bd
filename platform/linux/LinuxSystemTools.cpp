#include "platform/linux/LinuxSystemTools.h"

#include "platform/linux/Descriptor.h"
#include "platform/linux/SystemTree.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <map>
#include <poll.h>
#include <spawn.h>
#include <sys/eventfd.h>
#include <sys/ioctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tessivo {

namespace {

// How often an end is looked for on a kernel that can't report it, in milliseconds.
constexpr int lookInterval = 20;
constexpr std::size_t pieceBytes = 65536;

/// Starts the tool with standard output on the given end of a pipe; 0 if it can't be launched.
pid_t launch(const std::string& executable, const std::vector<std::string>& arguments, int output) {
    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;
    posix_spawn_file_actions_init(&files);
    posix_spawnattr_init(&attributes);

    posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&files, output, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addclosefrom_np(&files, STDERR_FILENO + 1);

    // A group of its own, and none of the signal settings that the application made for itself.
    sigset_t none, all;
    sigemptyset(&none);
    sigfillset(&all);
    posix_spawnattr_setpgroup(&attributes, 0);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setsigdefault(&attributes, &all);
    posix_spawnattr_setflags(&attributes,
                             POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);

    std::vector<char*> argv{const_cast<char*>(executable.c_str())};
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);

    pid_t child = 0;
    if (::posix_spawn(&child, executable.c_str(), &files, &attributes, argv.data(), environ) != 0) child = 0;
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    return child;
}

/// Whether the child has ended. It stays a zombie, so that its group's number can't pass to others.
bool hasEnded(pid_t child) {
    siginfo_t info{};
    const int fault = ::waitid(P_PID, id_t(child), &info, WEXITED | WNOHANG | WNOWAIT);
    return fault != 0 ? errno != EINTR : info.si_pid == child;
}

/// All processes that descend from the child, also those that left its group.
std::vector<pid_t> descendants(pid_t child) {
    const SystemTree system;
    std::multimap<pid_t, pid_t> children;
    for (const std::string& name : system.names("proc").value_or(std::vector<std::string>())) {
        const auto pid = wholeNumber(name);
        const auto status = pid ? system.bytes("proc/" + name + "/stat") : std::nullopt;
        // "pid (name) state parent ...", and the name may hold anything.
        const std::size_t end = status ? status->rfind(')') : std::string::npos;
        if (end == std::string::npos || end + 4 >= status->size()) continue;
        children.emplace(std::atoi(status->c_str() + end + 4), pid_t(*pid));
    }
    std::vector<pid_t> found{child};
    for (std::size_t i = 0; i < found.size(); ++i)
        for (auto [one, last] = children.equal_range(found[i]); one != last; ++one)
            found.push_back(one->second);
    found.erase(found.begin());
    return found;
}

/// Ends what is left of the child's group, then takes the child's status.
std::optional<int> endAndReap(pid_t child) {
    ::kill(-child, SIGKILL);
    ::kill(child, SIGKILL); // it may have joined another group
    int status = 0;
    pid_t reaped;
    do
        reaped = ::waitpid(child, &status, 0);
    while (reaped < 0 && errno == EINTR);
    if (reaped != child) return std::nullopt;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

/// Takes up to `largest` bytes out of a pipe that has some; keeps what the limit allows. False at the end.
bool take(int pipe, std::size_t largest, std::string& kept) {
    char buffer[pieceBytes];
    const ssize_t count = ::read(pipe, buffer, std::min(largest, sizeof buffer));
    if (count < 0) return errno == EINTR || errno == EAGAIN;
    kept.append(buffer, std::min(std::size_t(count), SystemTools::largestOutput - kept.size()));
    return count > 0;
}

/// What was in the pipe when the tool ended. Never more: a child it left may go on writing.
void drain(int pipe, std::string& kept) {
    int waiting = 0;
    if (::ioctl(pipe, FIONREAD, &waiting) != 0) return;
    while (waiting > 0) {
        const std::size_t before = kept.size();
        if (!take(pipe, std::size_t(waiting), kept) || kept.size() == before) return;
        waiting -= int(kept.size() - before);
    }
}

} // namespace

LinuxSystemTools::LinuxSystemTools(std::filesystem::path root) : m_root(std::move(root)) {}

std::optional<ToolRun> LinuxSystemTools::run(const std::string& executable,
                                             const std::vector<std::string>& arguments,
                                             const StopToken& stop) const {
    int ends[2];
    const Descriptor stopped(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    if (stop.stopRequested() || stopped < 0 || ::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        return std::nullopt;
    Descriptor output(ends[0]);
    Descriptor input(ends[1]);
    // The tool's end waits like any pipe.
    ::fcntl(input, F_SETFL, 0);

    const std::string tool = (m_root / std::filesystem::path(executable).relative_path()).string();
    const pid_t child = launch(tool, arguments, input);
    if (child == 0) return std::nullopt;
    input.reset();
    const Descriptor ended(int(::syscall(SYS_pidfd_open, child, 0)));
    const StopCallback wake(stop, [&] { ::eventfd_write(stopped, 1); });

    ToolRun result;
    bool open = true;
    while (!stop.stopRequested() && !hasEnded(child)) {
        pollfd watched[] = {{stopped, POLLIN, 0}, {ended, POLLIN, 0}, {open ? int(output) : -1, POLLIN, 0}};
        if (::poll(watched, 3, ended < 0 ? lookInterval : -1) <= 0) continue;
        if (watched[2].revents) open = take(output, pieceBytes, result.standardOutput);
    }
    const bool wasStopped = stop.stopRequested();
    if (!wasStopped && open) drain(output, result.standardOutput);
    if (wasStopped)
        for (const pid_t descendant : descendants(child))
            ::kill(descendant, SIGKILL);
    const auto status = endAndReap(child);
    if (wasStopped || !status) return std::nullopt;
    result.exitStatus = *status;
    return result;
}

} // namespace tessivo

#include "platform/macos/MacSystemTools.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <libproc.h>
#include <spawn.h>
#include <sys/event.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

extern "C" char** environ;

namespace tessivo {

namespace {

constexpr std::size_t pieceBytes = 65536;

/// A descriptor that is closed with its owner and that no other program inherits.
class Descriptor final {
public:
    explicit Descriptor(int number) : m_number(number) {
        if (number >= 0) ::fcntl(number, F_SETFD, FD_CLOEXEC);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { reset(); }

    operator int() const { return m_number; }
    void reset() {
        if (m_number >= 0) ::close(m_number);
        m_number = -1;
    }

private:
    int m_number;
};

struct Pipe {
    static Pipe make() {
        int ends[2];
        if (::pipe(ends) != 0) ends[0] = ends[1] = -1;
        return Pipe{Descriptor(ends[0]), Descriptor(ends[1])};
    }

    Descriptor output; ///< what is read from
    Descriptor input;
};

/// Starts the tool with standard output on the given end of a pipe; 0 if it can't be launched.
pid_t launch(const std::string& executable, const std::vector<std::string>& arguments, int output) {
    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;
    posix_spawn_file_actions_init(&files);
    posix_spawnattr_init(&attributes);

    posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&files, output, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);

    // A group of its own, and none of the signal settings that the application made for itself.
    sigset_t none, all;
    sigemptyset(&none);
    sigfillset(&all);
    posix_spawnattr_setpgroup(&attributes, 0);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setsigdefault(&attributes, &all);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK |
                                              POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_CLOEXEC_DEFAULT);

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

bool watch(int queue, int ident, std::int16_t filter, std::uint32_t note, std::uint16_t action = EV_ADD) {
    struct kevent change;
    EV_SET(&change, std::uintptr_t(ident), filter, action, note, 0, nullptr);
    return ::kevent(queue, &change, 1, nullptr, 0, nullptr) == 0;
}

/// All processes that descend from the child, also those that left its group.
std::vector<pid_t> descendants(pid_t child) {
    std::vector<pid_t> found{child};
    for (std::size_t i = 0; i < found.size(); ++i) {
        // Room for as many as there are processes at all.
        std::vector<pid_t> children(std::size_t(std::max(0, ::proc_listchildpids(found[i], nullptr, 0))));
        const int count =
            ::proc_listchildpids(found[i], children.data(), int(children.size() * sizeof(pid_t)));
        children.resize(std::clamp<std::size_t>(std::size_t(std::max(0, count)), 0, children.size()));
        found.insert(found.end(), children.begin(), children.end());
    }
    found.erase(found.begin());
    return found;
}

/// Ends what is left of the child's group, then takes the child's status. Before that its number, and so its
/// group's, can't pass to others.
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

std::optional<ToolRun> MacSystemTools::run(const std::string& executable,
                                           const std::vector<std::string>& arguments,
                                           const StopToken& stop) const {
    const Descriptor queue(::kqueue());
    Pipe printed = Pipe::make();
    const Pipe stopped = Pipe::make();
    if (stop.stopRequested() || queue < 0 || printed.input < 0 || stopped.input < 0 ||
        ::fcntl(printed.output, F_SETFL, O_NONBLOCK) != 0 || !watch(queue, printed.output, EVFILT_READ, 0) ||
        !watch(queue, stopped.output, EVFILT_READ, 0))
        return std::nullopt;
    const pid_t child = launch(executable, arguments, printed.input);
    if (child == 0) return std::nullopt;
    printed.input.reset();
    const StopCallback wake(stop, [&] { [[maybe_unused]] const auto sent = ::write(stopped.input, "", 1); });

    ToolRun result;
    bool open = true;
    const bool watched = watch(queue, child, EVFILT_PROC, NOTE_EXIT);
    bool ended = !watched && errno == ESRCH; // too soon to be watched
    while (watched && !ended && !stop.stopRequested()) {
        struct kevent events[3];
        const int count = ::kevent(queue, nullptr, 0, events, 3, nullptr);
        if (count < 0 && errno != EINTR) break;
        for (int i = 0; i < count; ++i) {
            if (events[i].filter == EVFILT_PROC) ended = true;
            if (events[i].filter != EVFILT_READ || events[i].ident != std::uintptr_t(int(printed.output)))
                continue;
            open = take(printed.output, pieceBytes, result.standardOutput);
            if (!open) watch(queue, printed.output, EVFILT_READ, 0, EV_DELETE);
        }
    }
    const bool wasStopped = stop.stopRequested();
    if (ended && !wasStopped && open) drain(printed.output, result.standardOutput);
    if (wasStopped)
        for (const pid_t descendant : descendants(child))
            ::kill(descendant, SIGKILL);
    const auto status = endAndReap(child);
    if (!ended || wasStopped || !status) return std::nullopt;
    result.exitStatus = *status;
    return result;
}

} // namespace tessivo

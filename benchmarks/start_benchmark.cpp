// Time from the start of a process to its first paint, and its peak memory: Tessivo on this computer beside
// an empty window of the same size, in turn. `start_benchmark [ROUNDS]`; set QT_QPA_PLATFORM to choose where
// they paint. Settings and data go to a folder that is thrown away.

#include "app/look/Theme.h"
#include "app/window/AppDelegate.h"
#include "app/window/RootView.h"
#include "benchmarks/Bench.h"

#include <QApplication>
#include <QMainWindow>
#include <cstdio>
#include <map>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace tessivo;
using namespace tessivo::bench;

namespace {

constexpr int usualRounds = 15;

/// Ends the process when the window has been painted and what was painted is on its way to the screen.
class FirstPaint final : public QObject {
public:
    explicit FirstPaint(QWidget& window) { window.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            QMetaObject::invokeMethod(qApp, [] { ::_exit(0); }, Qt::QueuedConnection);
        return false;
    }
};

int showTessivo(int argc, char** argv) {
    QApplication application(argc, argv);
    const Theme theme(application);
    const auto platform = makePlatform();
    NoDialogs dialogs;
    AppDelegate delegate(*platform, dialogs);
    const FirstPaint paint(delegate.window());
    delegate.open();
    return QApplication::exec();
}

int showEmptyWindow(int argc, char** argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.resize(windowSize);
    const FirstPaint paint(window);
    window.show();
    return QApplication::exec();
}

struct Run {
    double milliseconds = 0;
    double megabytes = 0;
};

Run run(const char* program, const char* what) {
    const Stopwatch watch;
    const pid_t child = ::fork();
    if (child == 0) {
        ::execl(program, program, what, nullptr);
        ::_exit(127);
    }
    int status = 0;
    rusage used{};
    ::wait4(child, &status, 0, &used);
    const double time = watch.milliseconds();
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        std::fprintf(stderr, "%s ended with status %d\n", what, status);
        std::exit(1);
    }
    return {time, double(used.ru_maxrss) / 1024};
}

} // namespace

int main(int argc, char** argv) {
    const std::string what = argc > 1 ? argv[1] : "";
    if (what == "tessivo") return showTessivo(argc, argv);
    if (what == "empty") return showEmptyWindow(argc, argv);
    const int rounds = what.empty() ? usualRounds : std::atoi(what.c_str());
    const std::string program = std::filesystem::read_symlink("/proc/self/exe").string();
    const Folder folder;
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        ::setenv(name, folder.path().c_str(), 1);
    std::map<std::string, std::vector<double>> times, memory;
    for (int round = -1; round < rounds; ++round)
        for (const char* each : {"tessivo", "empty"}) {
            const Run measured = run(program.c_str(), each);
            if (round < 0) continue; // the files come from the disk once
            times[each].push_back(measured.milliseconds);
            memory[each].push_back(measured.megabytes);
        }
    for (const char* each : {"tessivo", "empty"})
        std::printf("%-8s first paint after %.1f ms (median of %d, smallest %.1f), peak memory %.1f MiB\n",
                    each, Spread(times[each]).median, rounds, Spread(times[each]).smallest,
                    Spread(memory[each]).median);
}

#include "app/window/QuitSignals.h"

#include <QSocketNotifier>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace tessivo {

namespace {

constexpr int requests[] = {SIGTERM, SIGINT, SIGHUP};

// A signal handler reaches nothing but this.
volatile std::sig_atomic_t writingEnd = -1;

extern "C" void noteRequest(int) {
    const int before = errno;
    const char byte = 0;
    // A full pipe holds a request already.
    [[maybe_unused]] const auto written = ::write(int(writingEnd), &byte, 1);
    errno = before;
}

void handle(void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (const int request : requests)
        ::sigaction(request, &action, nullptr);
}

} // namespace

QuitSignals::QuitSignals(QObject* parent) : QObject(parent) {
    int ends[2];
    if (::pipe(ends) != 0) return;
    for (const int end : ends) {
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
        ::fcntl(end, F_SETFL, O_NONBLOCK);
    }
    m_reading = ends[0];
    writingEnd = ends[1];
    auto* notifier = new QSocketNotifier(m_reading, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        char bytes[16];
        while (::read(m_reading, bytes, sizeof bytes) > 0) {
        }
        Q_EMIT quitRequested();
    });
    handle(noteRequest);
}

QuitSignals::~QuitSignals() {
    if (m_reading < 0) return;
    handle(SIG_DFL);
    ::close(int(writingEnd));
    writingEnd = -1;
    ::close(m_reading);
}

} // namespace tessivo

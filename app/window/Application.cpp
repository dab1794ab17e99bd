#include "app/window/Application.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>

// At global scope, as the macro demands.
static void bringDrawings() {
    Q_INIT_RESOURCE(tessivo);
}

namespace tessivo {

namespace {

/// Without a display Qt crashes and advises to install it again; one plain line says it better. What it says
/// about a locale that isn't UTF-8 is left out.
void tellWhileStarting(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtFatalMsg) {
        std::fputs("Tessivo can't start: there is no display to open its window on\n", stderr);
        std::_Exit(1);
    }
    if (message.startsWith(u"Detected ") && message.contains(u"not UTF-8")) return;
    std::fprintf(stderr, "%s\n", qPrintable(message));
}

} // namespace

std::unique_ptr<QApplication> makeApplication(int& argc, char** argv, const QString& name) {
    const QtMessageHandler usual = qInstallMessageHandler(tellWhileStarting);
    auto application = std::make_unique<QApplication>(argc, argv);
    qInstallMessageHandler(usual);
    bringDrawings();
    // A file that would grow past the system's limit is a failed write, which is told; not the end.
    std::signal(SIGXFSZ, SIG_IGN);
    QApplication::setApplicationName(name);
    QApplication::setApplicationVersion(QStringLiteral(TESSIVO_VERSION));
    QApplication::setDesktopFileName(name.toLower().replace(u' ', u'-'));
    return application;
}

} // namespace tessivo

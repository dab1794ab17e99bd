#include "app/readers/PersonalSettingsReader.h"
#include "probe/ProbeCommands.h"

#include <QGuiApplication>
#include <csignal>
#include <cstdio>

int main(int argc, char** argv) {
    // Before the application object, which takes arguments of its own out of the list.
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    // Standard error is for the one line of a fault, not for the libraries' remarks.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& message) {
        if (type == QtFatalMsg) std::fprintf(stderr, "tessivo-probe: %s\n", qPrintable(message));
    });
    // A file that may not grow further is a fault to tell, as a full disk is, and no reason to die.
    std::signal(SIGXFSZ, SIG_IGN);
    // It draws PDFs and opens no window, with a display as without.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    tessivo::usePersonalSettings(*tessivo::makePersonalSettings());
    return tessivo::ProbeCommands::run(arguments);
}

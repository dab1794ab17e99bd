#include "app/controls/QtDialogs.h"
#include "app/controls/Theme.h"
#include "app/window/AppDelegate.h"
#include "app/window/QuitSignals.h"

#include <QApplication>
#include <QIcon>
#include <cstdio>

using namespace tessivo;

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    Q_INIT_RESOURCE(tessivo);
    QApplication::setApplicationName(QStringLiteral("Tessivo"));
    QApplication::setApplicationVersion(QStringLiteral(TESSIVO_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("tessivo"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/tessivo.svg")));
    const Theme theme(application);
    const auto platform = makePlatform();
    QtDialogs dialogs;
    try {
        AppDelegate delegate(*platform, dialogs);
        const QuitSignals quitSignals;
        QObject::connect(&quitSignals, &QuitSignals::quitRequested, &application,
                         [] { QCoreApplication::exit(0); });
        delegate.open();
        return QApplication::exec();
    } catch (const std::runtime_error& error) {
        std::fprintf(stderr, "Tessivo can't start: %s\n", error.what());
        return 1;
    }
}

#include "app/dialogs/QtDialogs.h"
#include "app/look/Theme.h"
#include "app/readers/PersonalSettingsReader.h"
#include "app/window/AppDelegate.h"
#include "app/window/Application.h"
#include "app/window/QuitSignals.h"
#include "app/window/SingleInstance.h"

#include <cstdio>

using namespace tessivo;

int main(int argc, char** argv) {
    const auto application = makeApplication(argc, argv, QStringLiteral("Tessivo"));
    const Theme theme(*application);
    const auto platform = makePlatform();
    usePersonalSettings(platform->personalSettings());
    QtDialogs dialogs(&platform->desktop());
    try {
        const SingleInstance instance(AppModel::supportFolder(*platform));
        if (!instance.isFirst()) {
            if (!instance.callFirst())
                dialogs.inform(nullptr, QStringLiteral("Tessivo is open already"),
                               QStringLiteral("It doesn’t answer. Close it, then open it again."));
            return 0;
        }
        AppDelegate delegate(*platform, dialogs);
        QObject::connect(&instance, &SingleInstance::startedAgain, &delegate, &AppDelegate::bringForward);
        const QuitSignals quitSignals;
        QObject::connect(&quitSignals, &QuitSignals::quitRequested, application.get(),
                         [] { QCoreApplication::exit(0); });
        delegate.open();
        return QApplication::exec();
    } catch (const std::runtime_error& error) {
        std::fprintf(stderr, "Tessivo can't start: %s\n", error.what());
        return 1;
    }
}

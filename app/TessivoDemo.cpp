#include "app/demo/ControlPanel.h"
#include "app/demo/DemoMac.h"
#include "app/demo/FeedServer.h"
#include "app/demo/FullDisk.h"
#include "app/dialogs/QtDialogs.h"
#include "app/look/Theme.h"
#include "app/readers/PersonalSettingsReader.h"
#include "app/window/Application.h"
#include "app/window/QuitSignals.h"
#include "app/window/RootView.h"
#include "app/window/SingleInstance.h"

#include <QScreen>
#include <cstdio>

using namespace tessivo;

namespace {

constexpr const char* firstMachine = "macbook-air-m2";

/// The window and the panel side by side, as far as the screen allows.
void placeBeside(QWidget& panel, QWidget& window) {
    const QRect room = window.screen()->availableGeometry();
    const int both = window.width() + panel.width();
    window.move(room.left() + std::max(0, (room.width() - both) / 2), room.top());
    panel.move(std::min(window.x() + window.width(), room.right() - panel.width()), room.top());
}

} // namespace

int main(int argc, char** argv) {
    const auto application = makeApplication(argc, argv, QStringLiteral("Tessivo Demo"));
    usePersonalSettings(*makePersonalSettings());
    const Theme theme(*application);
    const SingleInstance instance(demo::DemoMac::folder());
    if (!instance.isFirst()) return instance.callFirst() ? 0 : 1;
    QtDialogs dialogs;
    demo::FeedServer server;
    QStringList names;
    for (const std::string& name : demo::DemoMac::names())
        names << QString::fromStdString(name);
    demo::ControlPanel panel(names, server);
    std::unique_ptr<demo::DemoMac> mac;
    const auto open = [&](const QString& name) {
        demo::setDiskFull(false);
        panel.letGo();
        mac.reset();
        mac = std::make_unique<demo::DemoMac>(name.toStdString(), dialogs);
        placeBeside(panel, mac->application().window());
        panel.show(name, mac->controls());
        mac->application().open();
    };
    try {
        open(QString::fromLatin1(firstMachine));
    } catch (const std::runtime_error& error) {
        std::fprintf(stderr, "The demo can't start: %s\n", error.what());
        return 1;
    }
    // The panel's own controls go with the machine: not while one of them speaks.
    QObject::connect(
        &panel, &demo::ControlPanel::chosen, &panel,
        [&](const QString& name) {
            try {
                open(name);
            } catch (const std::runtime_error& error) {
                std::fprintf(stderr, "%s\n", error.what());
                QCoreApplication::exit(1);
            }
        },
        Qt::QueuedConnection);
    const auto quit = [] { QCoreApplication::exit(0); };
    QObject::connect(&panel, &demo::ControlPanel::closed, quit);
    QObject::connect(&instance, &SingleInstance::startedAgain, &panel,
                     [&](const QByteArray& token) { mac->application().bringForward(token); });
    const QuitSignals quitSignals;
    QObject::connect(&quitSignals, &QuitSignals::quitRequested, quit);
    const int status = QApplication::exec();
    panel.letGo();
    return status;
}

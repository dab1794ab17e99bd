#include "app/window/AppDelegate.h"

#include "app/model/QtText.h"
#include "app/window/RootView.h"

#include <QApplication>
#include <QIcon>

namespace tessivo {

AppDelegate::AppDelegate(Platform& platform, Dialogs& dialogs, QObject* parent)
    : QObject(parent),
      m_dialogs(dialogs),
      m_model(platform),
      m_updater(platform.updateFramework(), platform.scheduler(), "Tessivo", qt(AppModel::appVersion())),
      m_window(std::make_unique<RootView>(PageContext{m_model, dialogs}, m_updater)) {
    if (platform.desktop().windowsHaveIcons()) QApplication::setWindowIcon(QIcon(":/tessivo.svg"));
    connect(&m_updater, &Updater::alert, this, &AppDelegate::tell);
    connect(qApp, &QCoreApplication::aboutToQuit, &m_model, &AppModel::persist);
    // `exit`, not `quit`: an open dialog can't keep the program from ending.
    connect(m_window.get(), &RootView::closed, this, [] { QCoreApplication::exit(0); });
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::open() {
    m_window->show();
}

void AppDelegate::bringForward(const QByteArray& token) {
    constexpr const char* tokenName = "XDG_ACTIVATION_TOKEN"; // where Qt looks for it
    if (m_window->isMinimized()) m_window->showNormal();
    m_window->raise();
    if (!token.isEmpty()) qputenv(tokenName, token);
    m_window->activateWindow();
    qunsetenv(tokenName);
    QApplication::alert(m_window.get());
}

void AppDelegate::tell(const Updater::Alert& alert) {
    bringForward();
    m_dialogs.inform(m_window.get(), alert.message, alert.text);
}

} // namespace tessivo

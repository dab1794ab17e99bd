#include "platform/linux/LinuxDesktop.h"

#include "platform/linux/PaperSetting.h"
#include "platform/linux/SettingsPane.h"

#include <QProcess>
#include <QScreen>
#include <QUrl>
#include <QWindow>
#include <stdexcept>

namespace tessivo {

void LinuxDesktop::openURL(const std::string& url) {
    if (!SettingsPane::isLink(url))
        QtDesktop::openURL(url);
    else if (const auto pane = SettingsPane::find(url))
        QProcess::startDetached(pane->program, pane->arguments);
}

bool LinuxDesktop::canOpenURL(const std::string& url) const {
    return !SettingsPane::isLink(url) || SettingsPane::find(url);
}

std::optional<Paper> LinuxDesktop::paper() const {
    return PaperSetting::read("/");
}

void LinuxDesktop::coverScreen(QWindow& window, QScreen& screen) {
    window.setScreen(&screen);
    window.setGeometry(screen.geometry());
    window.showFullScreen();
}

} // namespace tessivo

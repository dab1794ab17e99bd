#include "platform/linux/LinuxDesktop.h"

#include "platform/linux/PaperSetting.h"
#include "platform/linux/SettingsPane.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QProcess>
#include <QUrl>
#include <stdexcept>

namespace tessivo {

namespace {

class NoWordingModel final : public WordingModel {
public:
    std::string rewrite(const std::string&, const std::string&) override {
        throw std::runtime_error("There is no language model on this computer.");
    }
};

} // namespace

void LinuxDesktop::openURL(const std::string& url) {
    if (!SettingsPane::isLink(url)) {
        QDesktopServices::openUrl(QUrl(QString::fromStdString(url)));
    } else if (const auto pane = SettingsPane::find(url)) {
        QProcess::startDetached(pane->program, pane->arguments);
    }
}

bool LinuxDesktop::canOpenURL(const std::string& url) const {
    return !SettingsPane::isLink(url) || SettingsPane::find(url);
}

void LinuxDesktop::setPasteboardText(const std::string& text) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

std::optional<Paper> LinuxDesktop::paper() const {
    return PaperSetting::read("/");
}

LinuxUpdateFramework::LinuxUpdateFramework(Desktop& desktop) : m_desktop(desktop) {}

std::optional<std::string> LinuxUpdateFramework::feedURL() const {
    const std::string url = TESSIVO_FEED_URL;
    if (url.empty()) return std::nullopt;
    return url;
}

void LinuxUpdateFramework::checkForUpdates() {
    m_desktop.openURL(TESSIVO_RELEASES_URL);
}

WordingAvailability LinuxWordingService::availability() const {
    return WordingAvailability::unsupported;
}

std::shared_ptr<WordingModel> LinuxWordingService::makeModel() {
    return std::make_shared<NoWordingModel>();
}

} // namespace tessivo

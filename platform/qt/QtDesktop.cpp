#include "platform/qt/QtDesktop.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QUrl>

namespace tessivo {

void QtDesktop::openURL(const std::string& url) {
    QDesktopServices::openUrl(QUrl(QString::fromStdString(url)));
}

bool QtDesktop::canOpenURL(const std::string&) const {
    return true;
}

void QtDesktop::setPasteboardText(const std::string& text) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

} // namespace tessivo

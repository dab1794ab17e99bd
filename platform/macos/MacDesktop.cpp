#include "platform/macos/MacDesktop.h"

#include "platform/macos/MacWindows.h"

#include <ApplicationServices/ApplicationServices.h>

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <algorithm>

namespace tessivo {

namespace {

constexpr double letterWidth =
    612; ///< points; legal sheets and larger ones of that family are as wide or wider
constexpr double a4Ratio = 1.4142; ///< of all A and B sheets

} // namespace

std::optional<Paper> MacDesktop::paper() const {
    PMPrintSession session = nullptr;
    PMPageFormat format = nullptr;
    PMRect sheet{};
    const bool known = PMCreateSession(&session) == noErr && PMCreatePageFormat(&format) == noErr &&
                       PMSessionDefaultPageFormat(session, format) == noErr &&
                       PMGetUnadjustedPaperRect(format, &sheet) == noErr;
    if (format) PMRelease(format);
    if (session) PMRelease(session);
    return known ? paperOf(sheet.right - sheet.left, sheet.bottom - sheet.top) : std::nullopt;
}

std::optional<Paper> MacDesktop::paperOf(double width, double height) {
    if (width > height) std::swap(width, height);
    if (!(width > 0)) return std::nullopt;
    if (std::abs(height / width - a4Ratio) < 0.01) return Paper::a4;
    return width < letterWidth - 1 ? std::nullopt : std::optional(Paper::letter);
}

QRectF MacDesktop::flipped(const QRectF& area, double firstScreenHeight) {
    return {area.x(), firstScreenHeight - area.y() - area.height(), area.width(), area.height()};
}

void MacDesktop::coverScreen(QWindow& window, QScreen& screen) {
    window.setScreen(&screen);
    window.setGeometry(screen.geometry());
    window.create();
    const QScreen& first = *QGuiApplication::primaryScreen();
    MacWindows::cover(window, flipped(screen.geometry(), first.geometry().height()));
    window.show(); // never full screen: that is a space of its own
}

bool MacDesktop::isOffered(const std::filesystem::path& file, const std::vector<std::string>& extensions) {
    const QString extension = QString::fromStdString(file.extension().string()).mid(1);
    return extensions.empty() || std::ranges::any_of(extensions, [&](const std::string& each) {
               return extension.compare(QString::fromStdString(each), Qt::CaseInsensitive) == 0;
           });
}

std::optional<std::vector<std::filesystem::path>> MacDesktop::openFiles(const OpenPanel& panel) {
    return MacWindows::choose(panel, [extensions = panel.extensions](const std::filesystem::path& file) {
        return isOffered(file, extensions);
    });
}

} // namespace tessivo

#include "platform/qt/ReleasesPage.h"

namespace tessivo {

std::optional<std::string> ReleasesPage::feedURL() const {
    const std::string url = TESSIVO_FEED_URL;
    if (url.empty()) return std::nullopt;
    return url;
}

void ReleasesPage::checkForUpdates() {
    m_desktop.openURL(TESSIVO_RELEASES_URL);
}

} // namespace tessivo

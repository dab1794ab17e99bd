#include "platform/qt/QtFolders.h"

#include <QStandardPaths>

namespace tessivo {

std::vector<std::filesystem::path> QtFolders::applicationSupport() const {
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (data.isEmpty()) return {};
    return {std::filesystem::path(data.toStdString()) / "Tessivo"};
}

} // namespace tessivo

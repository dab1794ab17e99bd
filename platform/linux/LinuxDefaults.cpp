#include "platform/linux/LinuxDefaults.h"

#include <QSettings>
#include <QStandardPaths>

namespace tessivo {

namespace {

std::optional<std::string> bytesOf(const QVariant& value) {
    if (!value.isValid()) return std::nullopt;
    return value.toByteArray().toStdString();
}

} // namespace

LinuxDefaults::LinuxDefaults(const std::filesystem::path& file)
    : m_file(QString::fromStdString(file.string())) {}

QVariant LinuxDefaults::value(const std::string& key) const {
    return QSettings(m_file, QSettings::IniFormat).value(QString::fromStdString(key));
}

void LinuxDefaults::store(const std::string& key, const QVariant& value) {
    // A fresh object each time: its status then speaks of this write alone.
    QSettings settings(m_file, QSettings::IniFormat);
    const QString name = QString::fromStdString(key);
    const QVariant before = settings.value(name);
    settings.setValue(name, value);
    settings.sync();
    if (settings.status() == QSettings::NoError) return;
    // What waits in memory would go out with the next write.
    if (before.isValid())
        settings.setValue(name, before);
    else
        settings.remove(name);
}

std::optional<std::string> LinuxDefaults::data(const std::string& key) const {
    return bytesOf(value(key));
}

std::optional<std::string> LinuxDefaults::text(const std::string& key) const {
    const QVariant stored = value(key);
    if (!stored.isValid()) return std::nullopt;
    return stored.toString().toStdString();
}

void LinuxDefaults::setData(const std::string& key, const std::string& bytes) {
    store(key, QByteArray::fromStdString(bytes));
}

void LinuxDefaults::setText(const std::string& key, const std::string& text) {
    store(key, QString::fromStdString(text));
}

std::vector<std::filesystem::path> LinuxFolders::applicationSupport() const {
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (data.isEmpty()) return {};
    return {std::filesystem::path(data.toStdString()) / "Tessivo"};
}

} // namespace tessivo

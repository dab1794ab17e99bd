#include "platform/simulated/SimulatedDefaults.h"

#include <QSettings>

namespace tessivo {

SimulatedDefaults::SimulatedDefaults(SimulatedMac& mac, const std::filesystem::path& file)
    : m_mac(mac), m_file(QString::fromStdString(file.string())) {
    if (m_file.isEmpty()) return;
    const QSettings settings(m_file, QSettings::IniFormat);
    for (const QString& key : settings.allKeys())
        m_values[key] = settings.value(key);
}

std::optional<std::string> SimulatedDefaults::data(const std::string& key) const {
    const QVariant value = m_values.value(QString::fromStdString(key));
    if (value.typeId() != QMetaType::QByteArray) return std::nullopt;
    return value.toByteArray().toStdString();
}

std::optional<std::string> SimulatedDefaults::text(const std::string& key) const {
    const QVariant value = m_values.value(QString::fromStdString(key));
    if (value.typeId() != QMetaType::QString) return std::nullopt;
    return value.toString().toStdString();
}

std::error_code SimulatedDefaults::setData(const std::string& key, const std::string& bytes) {
    return store(key, QByteArray::fromStdString(bytes));
}

std::error_code SimulatedDefaults::setText(const std::string& key, const std::string& text) {
    return store(key, QString::fromStdString(text));
}

std::error_code SimulatedDefaults::store(const std::string& key, const QVariant& value) {
    if (m_mac.defaultsFail) return std::make_error_code(std::errc::no_space_on_device);
    ++m_mac.defaultsWrites;
    m_values[QString::fromStdString(key)] = value;
    if (!m_file.isEmpty())
        QSettings(m_file, QSettings::IniFormat).setValue(QString::fromStdString(key), value);
    return {};
}

} // namespace tessivo

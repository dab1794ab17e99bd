#include "platform/simulated/SimulatedDesk.h"

namespace tessivo {

bool SimulatedDesktop::canOpenURL(const std::string& url) const {
    return m_mac.hasSettings || !url.starts_with("x-apple.systempreferences:");
}

SimulatedDefaults::SimulatedDefaults(SimulatedMac& mac, const std::filesystem::path& file) : m_mac(mac) {
    if (file.empty()) return;
    m_settings = std::make_unique<QSettings>(QString::fromStdString(file.string()), QSettings::IniFormat);
    for (const QString& key : m_settings->allKeys()) {
        const QVariant value = m_settings->value(key);
        if (value.typeId() == QMetaType::QByteArray)
            m_data[key.toStdString()] = value.toByteArray().toStdString();
        else
            m_text[key.toStdString()] = value.toString().toStdString();
    }
}

std::optional<std::string> SimulatedDefaults::data(const std::string& key) const {
    const auto entry = m_data.find(key);
    return entry == m_data.end() ? std::nullopt : std::optional(entry->second);
}

std::optional<std::string> SimulatedDefaults::text(const std::string& key) const {
    const auto entry = m_text.find(key);
    return entry == m_text.end() ? std::nullopt : std::optional(entry->second);
}

void SimulatedDefaults::setData(const std::string& key, const std::string& bytes) {
    if (!mayWrite()) return;
    store(key, QByteArray::fromStdString(bytes));
    m_text.erase(key);
    m_data[key] = bytes;
}

void SimulatedDefaults::setText(const std::string& key, const std::string& text) {
    if (!mayWrite()) return;
    store(key, QString::fromStdString(text));
    m_data.erase(key);
    m_text[key] = text;
}

bool SimulatedDefaults::mayWrite() {
    if (m_mac.defaultsFail) return false;
    ++m_mac.defaultsWrites;
    return true;
}

void SimulatedDefaults::store(const std::string& key, const QVariant& value) {
    if (!m_settings) return;
    m_settings->setValue(QString::fromStdString(key), value);
    m_settings->sync();
}

SimulatedFolders::SimulatedFolders(std::optional<std::vector<std::filesystem::path>> applicationSupport) {
    if (applicationSupport) {
        m_applicationSupport = std::move(*applicationSupport);
        return;
    }
    m_temporary = std::make_unique<QTemporaryDir>();
    if (m_temporary->isValid()) m_applicationSupport = {m_temporary->path().toStdString()};
}

} // namespace tessivo

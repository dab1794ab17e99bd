#pragma once

#include "platform/Storage.h"
#include "platform/simulated/SimulatedMac.h"

#include <QVariantMap>

namespace tessivo {

/// Defaults in memory and, where a file is given, in an ini file, which another simulated Mac can then
/// find. Main thread.
class SimulatedDefaults final : public Defaults {
public:
    /// An empty path keeps them in memory.
    SimulatedDefaults(SimulatedMac& mac, const std::filesystem::path& file);

    std::optional<std::string> data(const std::string& key) const override;
    std::optional<std::string> text(const std::string& key) const override;
    std::error_code setData(const std::string& key, const std::string& bytes) override;
    std::error_code setText(const std::string& key, const std::string& text) override;

private:
    std::error_code store(const std::string& key, const QVariant& value);

    SimulatedMac& m_mac;
    QString m_file;
    QVariantMap m_values; ///< data as QByteArray, texts as QString
};

} // namespace tessivo

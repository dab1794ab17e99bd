#pragma once

#include "platform/Storage.h"

#include <QVariant>

namespace tessivo {

/// The user's defaults in one settings file. A write that doesn't reach the disk leaves the values before
/// it; the file is replaced whole. Main thread.
class LinuxDefaults final : public Defaults {
public:
    explicit LinuxDefaults(const std::filesystem::path& file);

    std::optional<std::string> data(const std::string& key) const override;
    std::optional<std::string> text(const std::string& key) const override;
    void setData(const std::string& key, const std::string& bytes) override;
    void setText(const std::string& key, const std::string& text) override;
    void set(const std::vector<DefaultsEntry>& entries) override;

private:
    QVariant value(const std::string& key) const;

    std::filesystem::path m_file;
};

} // namespace tessivo

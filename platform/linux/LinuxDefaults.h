#pragma once

#include "platform/Storage.h"

#include <QJsonObject>

namespace tessivo {

/// The user's defaults in one JSON file, which is replaced whole: a text as a string, data as {"data":
/// Base64}. A value of another type is absent and stays. While there is no such file, the values are those of
/// the settings file of earlier versions beside it (".ini"), which is never written. Main thread.
class LinuxDefaults final : public Defaults {
public:
    explicit LinuxDefaults(std::filesystem::path file) : m_file(std::move(file)) {}

    std::optional<std::string> data(const std::string& key) const override;
    std::optional<std::string> text(const std::string& key) const override;
    std::error_code setData(const std::string& key, const std::string& bytes) override;
    std::error_code setText(const std::string& key, const std::string& text) override;
    /// A file that makes no sense, that couldn't be read at first, or that holds a damaged value under one of
    /// these keys is kept beside the new one as ".damaged" (".damaged2" and so on); one that can't be read
    /// now is left alone.
    std::error_code set(const std::vector<DefaultsEntry>& entries) override;

private:
    QJsonValue value(const std::string& key) const;

    std::filesystem::path m_file;
    mutable bool m_unread = false; ///< a value was asked for while the file couldn't be read
};

} // namespace tessivo

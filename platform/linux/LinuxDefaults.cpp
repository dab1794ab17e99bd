#include "platform/linux/LinuxDefaults.h"

#include "kit/support/Files.h"

#include <QJsonDocument>
#include <QSettings>
#include <algorithm>
#include <system_error>

namespace tessivo {

namespace {

constexpr std::uintmax_t largestFile = 64u << 20;
constexpr QLatin1String dataKey("data");

QJsonValue dataValue(const QByteArray& bytes) {
    return QJsonObject{{dataKey, QString::fromLatin1(bytes.toBase64())}};
}

/// The file's bytes; nothing if there is none. Throws std::system_error where it can't be read.
std::optional<std::string> bytesOf(const std::filesystem::path& file) {
    std::error_code error;
    if (!std::filesystem::exists(file, error) && !error) return std::nullopt;
    return Files::read(file, largestFile);
}

/// Nothing for what isn't an object.
std::optional<QJsonObject> parsed(const std::string& bytes) {
    const auto document = QJsonDocument::fromJson(QByteArray::fromStdString(bytes));
    return document.isObject() ? std::optional(document.object()) : std::nullopt;
}

/// What earlier versions stored. Throws std::system_error where that can't be read.
QJsonObject earlierValues(std::filesystem::path file) {
    const QSettings settings(QString::fromStdString(file.replace_extension(".ini").string()),
                             QSettings::IniFormat);
    if (settings.status() == QSettings::AccessError)
        throw std::system_error(std::make_error_code(std::errc::permission_denied));
    QJsonObject values;
    for (const QString& key : settings.allKeys()) {
        const QVariant value = settings.value(key);
        if (value.typeId() == QMetaType::QByteArray) values[key] = dataValue(value.toByteArray());
        if (value.typeId() == QMetaType::QString) values[key] = value.toString();
    }
    return values;
}

/// Nothing for what isn't whole data.
std::optional<std::string> decoded(const QJsonValue& stored) {
    const QJsonValue text = stored.toObject().value(dataKey);
    if (!text.isString()) return std::nullopt;
    const auto bytes =
        QByteArray::fromBase64Encoding(text.toString().toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    return bytes ? std::optional((*bytes).toStdString()) : std::nullopt;
}

/// Whether the entry would take the place of a value that nobody could read.
bool replacesUnreadable(const QJsonObject& values, const DefaultsEntry& entry) {
    const QJsonValue old = values.value(QString::fromStdString(entry.key));
    if (old.isUndefined()) return false;
    return entry.kind == DefaultsEntry::Kind::data ? !decoded(old) : !old.isString();
}

/// Keeps a copy beside the file, and every earlier one that differs.
void keepAside(const std::filesystem::path& file, const std::string& bytes) {
    for (int number = 1;; ++number) {
        const std::filesystem::path aside =
            file.string() + ".damaged" + (number > 1 ? std::to_string(number) : "");
        const auto kept = bytesOf(aside);
        if (!kept) return Files::writeAtomically(aside, bytes);
        if (*kept == bytes) return;
    }
}

} // namespace

QJsonValue LinuxDefaults::value(const std::string& key) const {
    try {
        const auto bytes = bytesOf(m_file);
        const auto values = bytes ? parsed(*bytes).value_or(QJsonObject()) : earlierValues(m_file);
        return values.value(QString::fromStdString(key));
    } catch (const std::exception&) {
        m_unread = true;
        return QJsonValue::Undefined;
    }
}

std::error_code LinuxDefaults::set(const std::vector<DefaultsEntry>& entries) {
    try {
        const auto bytes = bytesOf(m_file);
        const auto file = bytes ? std::filesystem::canonical(m_file) : m_file; // a link stays one
        auto values = bytes ? parsed(*bytes) : earlierValues(m_file);
        // Nothing that a person made goes away unread.
        const auto unreadable = [&](const DefaultsEntry& entry) {
            return replacesUnreadable(*values, entry);
        };
        if (bytes && (!values || m_unread || std::ranges::any_of(entries, unreadable)))
            keepAside(file, *bytes);
        if (!values) values.emplace();
        for (const DefaultsEntry& entry : entries)
            (*values)[QString::fromStdString(entry.key)] =
                entry.kind == DefaultsEntry::Kind::data ? dataValue(QByteArray::fromStdString(entry.value))
                                                        : QJsonValue(QString::fromStdString(entry.value));
        const QByteArray whole = QJsonDocument(*values).toJson();
        if (std::uintmax_t(whole.size()) > largestFile) // it couldn't be read any more
            return std::make_error_code(std::errc::file_too_large);
        Files::Calls calls;
        Files::createFolders(file.parent_path(), calls);
        Files::writeAtomically(file, whole.toStdString());
        Files::removeStrays(file.parent_path());
        m_unread = false;
        return {};
    } catch (const std::system_error& fault) { // the file stands as it was
        return fault.code();
    } catch (const std::exception&) {
        return std::make_error_code(std::errc::not_enough_memory);
    }
}

std::optional<std::string> LinuxDefaults::data(const std::string& key) const {
    return decoded(value(key));
}

std::optional<std::string> LinuxDefaults::text(const std::string& key) const {
    const QJsonValue stored = value(key);
    return stored.isString() ? std::optional(stored.toString().toStdString()) : std::nullopt;
}

std::error_code LinuxDefaults::setData(const std::string& key, const std::string& bytes) {
    return set({{key, DefaultsEntry::Kind::data, bytes}});
}

std::error_code LinuxDefaults::setText(const std::string& key, const std::string& text) {
    return set({{key, DefaultsEntry::Kind::text, text}});
}

} // namespace tessivo

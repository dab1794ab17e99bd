#include "platform/linux/LinuxDefaults.h"

#include "kit/support/Files.h"

#include <QSettings>
#include <QTemporaryFile>
#include <algorithm>

namespace tessivo {

namespace {

constexpr std::uintmax_t largestFile = 64u << 20;

std::optional<std::string> bytesOf(const QVariant& value) {
    if (!value.isValid()) return std::nullopt;
    return value.toByteArray().toStdString();
}

QVariant variant(const DefaultsEntry& entry) {
    if (entry.kind == DefaultsEntry::Kind::data) return QByteArray::fromStdString(entry.value);
    return QString::fromStdString(entry.value);
}

} // namespace

LinuxDefaults::LinuxDefaults(const std::filesystem::path& file) : m_file(file) {}

QVariant LinuxDefaults::value(const std::string& key) const {
    return QSettings(QString::fromStdString(m_file.string()), QSettings::IniFormat)
        .value(QString::fromStdString(key));
}

void LinuxDefaults::set(const std::vector<DefaultsEntry>& entries) {
    // On a copy that then takes the file's place: a settings object whose write fails keeps the change in
    // mind for the whole process and writes it at some later time.
    std::error_code error;
    const auto canonical = std::filesystem::canonical(m_file, error);
    const auto file = error ? m_file : canonical;
    std::filesystem::create_directories(file.parent_path(), error);
    QTemporaryFile copy(QString::fromStdString((file.parent_path() / ".Tessivo-XXXXXX.ini").string()));
    if (!copy.open()) return;
    copy.close();
    const std::filesystem::path copied = copy.fileName().toStdString();
    std::filesystem::copy_file(file, copied, std::filesystem::copy_options::overwrite_existing, error);
    std::error_code unseen;
    if (error && (std::filesystem::exists(file, unseen) || unseen)) return;

    QSettings settings(copy.fileName(), QSettings::IniFormat);
    for (const DefaultsEntry& entry : entries)
        settings.setValue(QString::fromStdString(entry.key), variant(entry));
    settings.sync();
    // Lines that make no sense don't keep the values out; they are what can't be read anyhow.
    if (settings.status() == QSettings::AccessError) return;
    // A nearly full disk leaves a shortened copy without a word, so the copy is read back. Under another
    // name: a settings object of the same name would answer from what it has in mind.
    const std::filesystem::path proof = copied.string() + ".proof.ini";
    std::filesystem::rename(copied, proof, error);
    if (error) return;
    const QSettings read(QString::fromStdString(proof.string()), QSettings::IniFormat);
    const bool whole = std::ranges::all_of(
        settings.allKeys(), [&](const QString& each) { return read.value(each) == settings.value(each); });
    try {
        if (whole) Files::writeAtomically(file, Files::read(proof, largestFile));
    } catch (const std::exception&) {
        // The file stands as it was.
    }
    std::filesystem::remove(proof, error);
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
    set({{key, DefaultsEntry::Kind::data, bytes}});
}

void LinuxDefaults::setText(const std::string& key, const std::string& text) {
    set({{key, DefaultsEntry::Kind::text, text}});
}

} // namespace tessivo

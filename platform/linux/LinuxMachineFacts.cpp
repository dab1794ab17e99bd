#include "platform/linux/LinuxMachineFacts.h"

#include "kit/hardware/RegistryNames.h"
#include "kit/support/Text.h"
#include "platform/linux/Firmware.h"
#include "platform/linux/InstalledMemory.h"
#include "platform/linux/InternalDrives.h"
#include "platform/linux/PermanentKeys.h"

#include <map>

namespace tessivo {

namespace {

/// "key : value" of the first line that has the key before a colon.
std::optional<std::string> valueOf(const std::optional<std::string>& table, std::string_view key) {
    if (!table) return std::nullopt;
    std::size_t start = 0;
    while (start < table->size()) {
        const std::size_t end = std::min(table->find('\n', start), table->size());
        const std::string_view line = std::string_view(*table).substr(start, end - start);
        start = end + 1;
        const std::size_t colon = line.find(':');
        if (colon == std::string_view::npos || Text::trimmed(line.substr(0, colon)) != key) continue;
        std::string value = Text::trimmed(Text::repaired(line.substr(colon + 1)));
        if (!value.empty()) return value;
    }
    return std::nullopt;
}

/// A value as a shell would read it: quotes taken off, a backslash taken for the character after it.
std::string unquoted(std::string_view raw) {
    std::string out;
    char quote = 0;
    for (std::size_t i = 0; i < raw.size(); ++i) {
        const char c = raw[i];
        if (c == '\\' && quote != '\'' && i + 1 < raw.size())
            out += raw[++i];
        else if (quote ? c == quote : (c == '"' || c == '\''))
            quote = quote ? 0 : c;
        else
            out += c;
    }
    return Text::trimmed(out);
}

std::map<std::string, std::string> osRelease(const SystemTree& tree) {
    auto file = tree.bytes("etc/os-release");
    if (!file) file = tree.bytes("usr/lib/os-release");
    std::map<std::string, std::string> values;
    for (const std::string& line : Text::lines(Text::repaired(file.value_or(""))))
        if (const auto sign = line.find('='); sign != std::string::npos && !line.starts_with('#'))
            values[Text::trimmed(line.substr(0, sign))] = unquoted(Text::trimmed(line.substr(sign + 1)));
    return values;
}

} // namespace

LinuxMachineFacts::LinuxMachineFacts(SystemTree tree) : m_tree(std::move(tree)) {}

std::optional<std::string> LinuxMachineFacts::sysctlbyname(const std::string& name) const {
    std::optional<std::string> value;
    if (name == SystemFact::model) value = Firmware::model(m_tree);
    if (name == SystemFact::processor) {
        value = Firmware::appleChip(m_tree);
        if (!value) value = valueOf(m_tree.bytes("proc/cpuinfo"), "model name");
    }
    if (name == SystemFact::build) value = m_tree.text("proc/sys/kernel/osrelease");
    if (value) value->push_back('\0');
    return value;
}

OperatingSystem LinuxMachineFacts::operatingSystem() const {
    auto values = osRelease(m_tree);
    const std::string version = values["VERSION_ID"];
    OperatingSystem system;
    // "Linux" is what a release file without a name stands for; some systems have no version.
    system.title = values["NAME"].empty() ? "Linux" : values["NAME"];
    if (!version.empty()) *system.title += " " + version;
    std::int64_t* const numbers[] = {&system.major, &system.minor, &system.patch};
    std::size_t start = 0;
    for (std::int64_t* number : numbers) {
        if (start > version.size()) break;
        const std::size_t end = std::min(version.find('.', start), version.size());
        *number = wholeNumber(std::string_view(version).substr(start, end - start)).value_or(0);
        start = end + 1;
    }
    return system;
}

std::uint64_t LinuxMachineFacts::physicalMemory() const {
    return std::uint64_t(InstalledMemory::bytes(m_tree).value_or(0));
}

std::optional<std::int64_t> LinuxMachineFacts::startupVolumeTotalCapacity() const {
    return InternalDrives::capacity(m_tree);
}

std::optional<HardwareKeys> LinuxMachineFacts::hardwareKeys() const {
    return PermanentKeys::read(m_tree);
}

} // namespace tessivo

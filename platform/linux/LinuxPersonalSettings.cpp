#include "platform/linux/LinuxPersonalSettings.h"

#include "kit/listing/Lang.h"
#include "kit/listing/Strings.h"

#include <cstdlib>

namespace tessivo {

std::string LinuxPersonalSettings::language() const {
    return Lang::fromPreferred(
        Lang::preferred([](const char* name) -> const char* { return std::getenv(name); }));
}

std::optional<std::filesystem::path> LinuxPersonalSettings::resources() const {
    std::error_code error; // where there is no such link there are no such folders
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    const auto folder = program.parent_path();
    for (const auto& place : {folder, folder.parent_path() / "share/tessivo"})
        if (!program.empty() && std::filesystem::exists(Strings::tableFile(place), error)) return place;
    return std::nullopt;
}

std::unique_ptr<PersonalSettings> makePersonalSettings() {
    return std::make_unique<LinuxPersonalSettings>();
}

} // namespace tessivo

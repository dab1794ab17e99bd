#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace tessivo {

/// What the system knows of its person, asked once, before the first text is made. Main thread.
class PersonalSettings {
public:
    virtual ~PersonalSettings() = default;

    /// "en" or "es": the first of the person's languages that this program speaks, else "en".
    virtual std::string language() const = 0;
    /// How the person writes dates and numbers, as an ICU locale identifier ("de_CH"). Empty: as the
    /// environment has it.
    virtual std::string region() const = 0;
    /// The folder in which the program's "TessivoKit_TessivoKit.bundle" lies; nothing where it is run from
    /// the folder it was built in.
    virtual std::optional<std::filesystem::path> resources() const = 0;
};

/// Those of this computer's person, for programs that ask nothing else of the computer. The build's platform
/// defines it, as `makePlatform`.
std::unique_ptr<PersonalSettings> makePersonalSettings();

} // namespace tessivo

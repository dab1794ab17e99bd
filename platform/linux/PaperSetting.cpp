#include "platform/linux/PaperSetting.h"

#include <QLocale>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <langinfo.h>
#include <locale.h>
#include <string>

namespace tessivo::PaperSetting {

namespace {

constexpr std::intptr_t letterWidth = 216; // millimetres, as the locale has it

/// The name of the locale that decides on paper; empty where there is none.
std::string localeName() {
    for (const char* variable : {"LC_ALL", "LC_PAPER", "LANG"})
        if (const char* value = std::getenv(variable); value && *value) return value;
    return {};
}

/// Where people write on Letter, as the locales' own data has it.
bool usesLetter(QLocale::Territory territory) {
    using enum QLocale::Country;
    constexpr std::array letterCountries = {UnitedStates, Canada,      Mexico,     Belize,    Chile,
                                            Colombia,     CostaRica,   ElSalvador, Guatemala, Nicaragua,
                                            Panama,       Philippines, PuertoRico, Venezuela};
    return std::ranges::find(letterCountries, territory) != letterCountries.end();
}

std::optional<Paper> ofLocale(const std::string& name) {
    if (name.empty() || name == "C" || name == "POSIX" || name.starts_with("C.")) return std::nullopt;
    if (const locale_t locale = ::newlocale(LC_PAPER_MASK, name.c_str(), nullptr)) {
        // A number in place of a text.
        const auto width = reinterpret_cast<std::intptr_t>(::nl_langinfo_l(_NL_PAPER_WIDTH, locale));
        ::freelocale(locale);
        return width == letterWidth ? Paper::letter : Paper::a4;
    }
    // Chosen, but its data was never generated here.
    const QLocale known(QString::fromStdString(name));
    if (known.language() == QLocale::C || known.territory() == QLocale::World) return std::nullopt;
    return usesLetter(known.territory()) ? Paper::letter : Paper::a4;
}

std::optional<Paper> ofFile(const std::filesystem::path& file) {
    std::ifstream lines(file);
    std::string name;
    while (lines >> name) {
        if (!name.starts_with('#')) break;
        std::getline(lines, name);
        name.clear();
    }
    std::ranges::transform(name, name.begin(), [](unsigned char c) { return char(std::tolower(c)); });
    for (const char* known : {"letter", "legal", "tabloid", "ledger", "executive", "statement"})
        if (name == known) return Paper::letter;
    if (name.size() == 2 && (name[0] == 'a' || name[0] == 'b') && name[1] >= '0' && name[1] <= '9')
        return Paper::a4;
    return std::nullopt;
}

} // namespace

std::optional<Paper> read(const std::filesystem::path& root) {
    if (const auto paper = ofLocale(localeName())) return paper;
    return ofFile(root / "etc/papersize");
}

} // namespace tessivo::PaperSetting

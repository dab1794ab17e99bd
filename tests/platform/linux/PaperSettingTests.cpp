#include "platform/linux/PaperSetting.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <map>

namespace tessivo {
namespace {

/// While it lives the environment names these locales alone.
class Locales final {
public:
    explicit Locales(const std::map<std::string, std::string>& values) {
        for (const char* name : {"LC_ALL", "LC_PAPER", "LANG"}) {
            if (const char* before = std::getenv(name)) m_before[name] = before;
            const auto value = values.find(name);
            value == values.end() ? ::unsetenv(name) : ::setenv(name, value->second.c_str(), 1);
        }
    }
    ~Locales() {
        for (const char* name : {"LC_ALL", "LC_PAPER", "LANG"}) {
            const auto before = m_before.find(name);
            before == m_before.end() ? ::unsetenv(name) : ::setenv(name, before->second.c_str(), 1);
        }
    }

private:
    std::map<std::string, std::string> m_before;
};

TEST(PaperSetting, isTheLocalesElseTheFiles) {
    using enum Paper;
    struct Row {
        std::map<std::string, std::string> locales;
        const char* file; ///< null: there is none
        std::optional<Paper> paper;
    };
    const Row rows[] = {
        {{{"LANG", "en_US.UTF-8"}}, "a4", letter},
        {{{"LANG", "de_DE.UTF-8"}}, "letter", a4},
        {{{"LANG", "en_US.UTF-8"}, {"LC_PAPER", "de_DE.UTF-8"}}, nullptr, a4},
        {{{"LANG", "de_DE.UTF-8"}, {"LC_PAPER", "es_MX.UTF-8"}}, nullptr, letter},
        {{{"LANG", "de_DE.UTF-8"}, {"LC_PAPER", ""}, {"LC_ALL", "en_CA.UTF-8"}}, nullptr, letter},
        {{{"LC_ALL", "C.UTF-8"}, {"LC_PAPER", "de_DE.UTF-8"}}, "letter\n", letter},
        {{{"LANG", "POSIX"}}, "# by the administrator\n\n  A4 \n", a4},
        {{{"LANG", "no such locale"}}, "Legal", letter},
        {{{"LANG", "eo"}}, "letter", letter},
        {{}, nullptr, std::nullopt},
        {{{"LANG", "C"}}, "", std::nullopt},
        {{{"LANG", "C"}}, "\xff\xfe a4", std::nullopt},
    };
    for (const Row& row : rows) {
        const TemporaryFolder root;
        std::filesystem::create_directories(root / "etc");
        if (row.file) root.write("etc/papersize", row.file);
        const Locales locales(row.locales);
        EXPECT_EQ(PaperSetting::read(root.path()), row.paper)
            << (row.locales.empty() ? "" : row.locales.begin()->second) << ", "
            << (row.file ? row.file : "no file");
    }
}

} // namespace
} // namespace tessivo

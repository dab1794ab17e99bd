#include "platform/linux/LinuxPersonalSettings.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace tessivo {
namespace {

TEST(LinuxPersonalSettings, theLanguageIsTheEnvironmentsAndTheRegionIsLeftToIt) {
    const char* const before = std::getenv("LANGUAGE");
    const std::string kept = before ? before : "";
    const std::pair<const char*, const char*> rows[] = {{"es_MX:en", "es"}, {"en:es", "en"}, {"fr", "en"}};
    for (const auto& [variable, language] : rows) {
        ::setenv("LANGUAGE", variable, 1);
        EXPECT_EQ(makePersonalSettings()->language(), language) << variable;
    }
    before ? ::setenv("LANGUAGE", kept.c_str(), 1) : ::unsetenv("LANGUAGE");
    EXPECT_EQ(makePersonalSettings()->region(), "");
    EXPECT_EQ(makePersonalSettings()->resources(), std::nullopt) << "nothing is installed beside a test";
}

} // namespace
} // namespace tessivo

#include "kit/listing/Lang.h"

#include <gtest/gtest.h>
#include <map>
#include <thread>

using namespace tessivo;

TEST(Lang, onlyTheFirstPreferredLanguageDecides) {
    const std::pair<std::vector<std::string>, const char*> rows[] = {
        {{}, "en"},           {{"es"}, "es"},       {{"es-419"}, "es"},   {{"es-MX", "en"}, "es"},
        {{"en-ES"}, "en"},    {{"fr-FR"}, "en"},    {{"fr", "es"}, "en"}, {{"en", "es"}, "en"},
        {{"ca-ES-es"}, "en"}, {{"", "es-ES"}, "en"}};
    for (const auto& [preferred, code] : rows)
        EXPECT_EQ(Lang::fromPreferred(preferred), code) << testing::PrintToString(preferred);
}

TEST(Lang, theEnvironmentTellsThePreferredLanguages) {
    using Environment = std::map<std::string, const char*>;
    const std::pair<Environment, std::vector<std::string>> rows[] = {
        {{}, {}},
        {{{"LANG", "es_MX.UTF-8"}}, {"es-MX"}},
        {{{"LANG", "ca_ES.UTF-8@valencia"}}, {"ca-ES"}},
        {{{"LANG", "C.UTF-8"}}, {"en"}},
        {{{"LANG", "es_ES"}, {"LC_MESSAGES", "POSIX"}}, {"en"}},
        {{{"LANG", "es_ES"}, {"LC_MESSAGES", ""}, {"LC_ALL", ""}}, {"es-ES"}},
        {{{"LANG", "en_US"}, {"LC_MESSAGES", "fr_FR"}, {"LC_ALL", "es_AR"}}, {"es-AR"}},
        {{{"LANGUAGE", "es_CL:en"}, {"LANG", "en_US.UTF-8"}}, {"es-CL", "en", "en-US"}},
        {{{"LANGUAGE", ":es:"}, {"LC_ALL", "de_DE"}}, {"es", "de-DE"}}};
    for (const auto& [environment, languages] : rows) {
        const auto variable = [&environment = environment](const char* name) -> const char* {
            const auto found = environment.find(name);
            return found == environment.end() ? nullptr : found->second;
        };
        EXPECT_EQ(Lang::preferred(variable), languages) << testing::PrintToString(environment);
    }
}

TEST(Lang, anOverrideEndsWithItsOperationWhateverBecomesOfIt) {
    const std::string before = Lang::current();
    EXPECT_EQ(Lang::override(), std::nullopt);
    EXPECT_EQ(
        Lang::with("es", [] { return Lang::current() + Lang::with("en", [] { return Lang::current(); }); }),
        "esen");
    EXPECT_THROW(Lang::with("es", [] { throw std::runtime_error("no"); }), std::runtime_error);
    EXPECT_EQ(Lang::override(), std::nullopt);
    EXPECT_EQ(Lang::current(), before);
    EXPECT_FALSE(Lang::with("es-MX", [] { return Lang::isSpanish(); })); // the code alone, exactly
}

TEST(Lang, anOverrideBelongsToItsTaskAndToWhatThatStarts) {
    std::string seenByStranger, seenByStarted, seenBehind;
    Lang::with("es", [&] {
        std::thread([&] { seenByStranger = Lang::current(); }).join();
        std::thread([&, started = Lang::carrying([&] { seenByStarted = Lang::current(); })] {
            Lang::with("en", [&] {
                started();
                seenBehind = Lang::current();
            });
        }).join();
    });
    EXPECT_EQ(seenByStranger, Lang::system());
    EXPECT_EQ(seenByStarted, "es");
    EXPECT_EQ(seenBehind, "en");

    // What a task without an override starts has none either, on whatever thread it lands.
    std::optional<std::string> carried = "unset";
    const auto plain = Lang::carrying([&] { carried = Lang::override(); });
    Lang::with("es", plain);
    EXPECT_EQ(carried, std::nullopt);
}

TEST(Lang, datesAreLongAndWithoutATime) {
    const Date date = *Date::fromISO8601("2026-03-05T20:00:00Z");
    EXPECT_EQ(Lang::with("en", [&] { return Lang::dateText(date); }), "March 5, 2026");
    EXPECT_EQ(Lang::with("es", [&] { return Lang::dateText(date); }), "5 de marzo de 2026");
    EXPECT_EQ(Lang::with("fr", [&] { return Lang::dateText(date); }), "March 5, 2026");
}

#include "kit/listing/Lang.h"
#include "kit/listing/Numbers.h"
#include "kit/listing/Strings.h"
#include "kit/listing/WordingGuard.h"
#include "kit/support/Text.h"
#include "kit/vocabulary/TestID.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <regex>
#include <set>

using namespace tessivo;

namespace {

using Keys = std::set<std::string>;

Keys titles() {
    Keys keys;
    for (const TestID test : allCases<TestID>())
        keys.insert(title(test));
    return keys;
}

/// What the pattern's first group finds in the sources whose path begins so, once literals that run over
/// several lines are joined.
Keys literals(const std::string& beginning, const char* pattern) {
    Keys found;
    const std::filesystem::path start = TESSIVO_SOURCE + beginning;
    const auto folder = std::filesystem::is_directory(start) ? start : start.parent_path();
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const std::string path = entry.path();
        if (!path.starts_with(start.native()) || !path.ends_with(".cpp")) continue;
        const std::string text = std::regex_replace(bytesOf(path), std::regex("\"\\s*\\n\\s*\""), "");
        const std::regex literal(pattern);
        for (std::sregex_iterator match(text.begin(), text.end(), literal), end; match != end; ++match)
            found.insert((*match)[1]);
    }
    return found;
}

std::map<std::string, std::string> shippedTable() {
    return Strings::loadTable({TESSIVO_SOURCE "/kit/resources/strings-es.json"});
}

std::size_t placeholders(const std::string& text) {
    return (text.size() - Text::replaced(text, "%@", "").size()) / 2;
}

std::string inSpanish(const std::string& key, const std::vector<std::string>& arguments = {}) {
    return Lang::with("es", [&] { return Strings::tr(key, arguments); });
}
std::string inEnglish(const std::string& key, const std::vector<std::string>& arguments = {}) {
    return Lang::with("en", [&] { return Strings::tr(key, arguments); });
}

/// The keys that the listing, the guard and the pages ask for, as they stand in their sources.
Keys askedFor() {
    Keys keys = titles();
    keys.merge(literals("/kit", R"re(\btr\(\s*"([^"]*)")re"));
    keys.merge(literals("/app/pages", R"re((?:\bwords|Strings::tr)\(\s*"([^"]*)")re"));
    return keys;
}

} // namespace

TEST(SpanishTable, holdsExactlyTheSixtyKeysThatAreAskedFor) {
    Keys held;
    for (const auto& [key, value] : shippedTable())
        held.insert(key);
    EXPECT_EQ(held, askedFor());
    EXPECT_EQ(held.size(), 60u);
}

TEST(SpanishTable, keepsThePlaceholdersAndTheQuotesOfItsKeys) {
    for (const auto& [key, value] : shippedTable()) {
        EXPECT_EQ(placeholders(value), placeholders(key)) << key;
        for (const char* mark : {"“%@”", "…", ":"})
            EXPECT_EQ(value.ends_with(mark) || value.find(mark) != value.npos,
                      key.ends_with(mark) || key.find(mark) != key.npos)
                << key;
        EXPECT_EQ(Text::trimmed(value), value);
        EXPECT_FALSE(value.empty()) << key;
        EXPECT_TRUE(Numbers::find(value) == Numbers::find(key)) << key;
    }
}

TEST(SpanishTable, theListingsOwnWordsMakeNoClaim) {
    // A claim that stands in the template would pass in every rewording of it.
    ListingWriteUp blank;
    blank.facts.problems = 1;
    for (const auto& [key, value] : shippedTable())
        for (const std::string& text : {key, value})
            for (const GuardIssue& issue : WordingGuard::check(text, blank))
                EXPECT_NE(issue.kind, GuardIssue::Case::addedClaim) << issue.payload << " in " << text;
}

TEST(Strings, fillsEachPlaceholderInOrderAndAsItStands) {
    EXPECT_EQ(inEnglish("Model ID: %@", {"%@ 100% %s"}), "Model ID: %@ 100% %s");
    EXPECT_EQ(inSpanish("Memory: %@", {"16 GB"}), "Memoria: 16 GB");
    EXPECT_EQ(inEnglish("%@, %@", {"1,5", "%@"}), "1,5, %@");
    EXPECT_EQ(inEnglish("%@ and %@", {"one"}), "one and %@");
    EXPECT_EQ(inEnglish("plain", {"unused"}), "plain");
    // Without arguments a text is no format.
    EXPECT_EQ(inEnglish("100% of %@ %d %%"), "100% of %@ %d %%");
    EXPECT_EQ(inSpanish("100% of %@ %d %%"), "100% of %@ %d %%"); // not in the table either
    EXPECT_EQ(inSpanish("Keyboard"), "Teclado");
    EXPECT_EQ(inEnglish("Keyboard"), "Keyboard"); // though the table has been loaded
}

TEST(Strings, onlyAnObjectOfTextsIsATable) {
    using Table = std::map<std::string, std::string>;
    EXPECT_EQ(Strings::parseTable(R"({"a": "b", "ñ": "\u00f1 “%@”"})"), (Table{{"a", "b"}, {"ñ", "ñ “%@”"}}));
    const std::string rows[] = {"{}",
                                "",
                                " \n",
                                "null",
                                R"(["a", "b"])",
                                R"({"a": "b", "c": 1})",
                                R"({"a": "b", "c": null})",
                                R"({"a": "b", "c": {"d": "e"}})",
                                R"({"a": "b",})",
                                R"({"a": "b"} x)",
                                R"({"a": "b")",
                                R"({"a": "b" /* c */})",
                                R"({"a": "\ud800"})",
                                "{\"a\": \"\xff\"}",
                                "{\"a\": \"line\nfeed\"}",
                                std::string("{\"a\": \"b\"}\0", 11),
                                std::string(5000, '[')};
    for (const std::string& json : rows)
        EXPECT_EQ(Strings::parseTable(json), Table{}) << json.substr(0, 60);
}

TEST(Strings, theFirstTableThereIsCountsAndABrokenOneMeansEnglish) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "a-folder");
    const auto good = folder.write("good.json", R"({"Keyboard": "Teclado"})");
    const auto broken = folder.write("broken.json", "{");
    const auto huge = folder.write("huge.json", R"({"a": ")" + std::string(2 << 20, 'x') + "\"}");
    EXPECT_EQ(Strings::loadTable({folder / "missing.json", good}).size(), 1u);
    EXPECT_TRUE(Strings::loadTable({}).empty());
    EXPECT_TRUE(Strings::loadTable({broken, good}).empty());
    for (const auto& file : {huge, folder / "a-folder"})
        EXPECT_TRUE(Strings::loadTable({file}).empty()) << file;
}

TEST(Numbers, areRunsOfDigitsJoinedByPointsAndCommas) {
    using Tokens = std::vector<std::string>;
    const std::pair<const char*, Tokens> rows[] = {
        {"", {}},
        {"no digits, none.", {}},
        {"1.2.3", {"1.2.3"}},
        {"2,5 y 2.5", {"2,5", "2.5"}},
        {"3, 4", {"3", "4"}},
        {"10 9 10", {"10", "9"}},
        {"ends 16.", {"16"}},
        {"16 and 16.0", {"16", "16.0"}},
        {"M2 Mac14,2 25G83", {"14,2", "2", "25", "83"}},
        {"100% .5 5,, 6 1..2 1.,2", {"1", "100", "2", "5", "6"}},
        {"٣٫٥ ١٤,٢", {"١٤,٢", "٣", "٥"}},     // Arabic-Indic; its own decimal mark joins nothing
        {"१२.3 𝟙𝟚 ①② Ⅷ ² ½", {"१२.3", "𝟙𝟚"}}, // decimal digits of any script, but no other numbers
        {"1\u0301 2️⃣", {"1", "2"}},
        {"7\xff\x38\x80", {"7", "8"}},
    };
    for (const auto& [text, tokens] : rows)
        EXPECT_EQ(Numbers::find(text), tokens) << text;
}

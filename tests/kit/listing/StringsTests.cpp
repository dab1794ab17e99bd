#include "kit/listing/Lang.h"
#include "kit/listing/Strings.h"
#include "kit/listing/WordingGuard.h"
#include "kit/support/Text.h"
#include "kit/vocabulary/TestID.h"

#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <set>
#include <sstream>

using namespace tessivo;

namespace {

using Keys = std::set<std::string>;

Keys titles() {
    Keys keys;
    for (const TestID test : allCases<TestID>())
        keys.insert(title(test));
    return keys;
}

const Keys listingKeys = {
    "%@ memory",
    "%@ storage",
    "Tested on %@ with Tessivo. Everything below is copied from the condition report.",
    "Problems found:",
    "Problems found: none in the tests that were run.",
    "Tested and working:",
    "Not checked by the app (check these yourself):",
    "Not tested:",
    "Not part of this sale:",
    "Seller's notes:",
    "Specs:",
    "Model: %@",
    "Model ID: %@",
    "Chip: %@",
    "Memory: %@",
    "Storage: %@",
    "Serial number: %@",
    "At pickup you can run the same tests with Tessivo and compare.",
};
const Keys guardKeys = {
    "It left out or changed “%@”.",
    "It added the number %@, which isn't in the report.",
    "It dropped the number %@.",
    "It said “%@”, which the report doesn't.",
    "It came back empty.",
    "It came back much longer than the report.",
    "Apple Intelligence is off. Turn it on in System Settings to polish the wording; the template is "
    "complete "
    "without it.",
    "Apple's on-device model isn't ready yet (it may still be downloading). The template is complete without "
    "it.",
    "Polish Wording uses Apple Intelligence on this Mac (macOS 26 or later on Apple silicon). The template "
    "is "
    "complete without it.",
};
const Keys pageKeys = {
    "Write Listing Description…",
    "An honest listing description made from this report, problems first",
    "Listing description",
    "Listing Write-Up",
    "Every number, spec and problem is copied from the report. You're responsible for what your listing "
    "says, so "
    "read it before you post.",
    "Draft: check before posting",
    "Include the serial number",
    "Version",
    "Template",
    "Polished",
    "Polish Wording",
    "Polishing on this Mac…",
    "Nothing leaves this Mac.",
    "Copy",
    "Copied. Read it once more before you post.",
    "Done",
    "The reworded version was thrown away, so the template stays:",
    "Reworded on this Mac. Every number and problem matched the report.",
    "Couldn't polish the wording: %@",
};

Keys together(std::initializer_list<Keys> groups) {
    Keys all;
    for (const Keys& group : groups)
        all.insert(group.begin(), group.end());
    return all;
}

/// What the pattern's first group finds in all sources of a folder, once literals that run over several
/// lines are joined.
Keys literals(const char* folder, const char* pattern) {
    Keys found;
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(TESSIVO_SOURCE + std::string(folder))) {
        if (entry.path().extension() != ".cpp") continue;
        std::stringstream source;
        source << std::ifstream(entry.path()).rdbuf();
        const std::string text = std::regex_replace(source.str(), std::regex("\"\\s*\\n\\s*\""), "");
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

} // namespace

TEST(SpanishTable, holdsExactlyTheSixtyKeysThatAreAskedFor) {
    const Keys all = together({titles(), listingKeys, guardKeys, pageKeys});
    ASSERT_EQ(all.size(), 60u);
    Keys held;
    for (const auto& [key, value] : shippedTable())
        held.insert(key);
    EXPECT_EQ(held, all);
    EXPECT_EQ(literals("/kit", R"re(\btr\(\s*"([^"]*)")re"), together({listingKeys, guardKeys}));
}

TEST(SpanishTable, holdsTheKeysOfThePages) {
    EXPECT_EQ(literals("/app/pages", R"re((?:\bwords|Strings::tr)\(\s*"([^"]*)")re"), pageKeys);
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
    for (const std::string& key : together({titles(), listingKeys}))
        for (const std::string& text : {key, inSpanish(key)})
            EXPECT_EQ(WordingGuard::check(text, blank), std::vector<GuardIssue>{}) << text;
}

TEST(Strings, fillsEachPlaceholderInOrderAndAsItStands) {
    EXPECT_EQ(inEnglish("Model ID: %@", {"%@ 100% %s"}), "Model ID: %@ 100% %s");
    EXPECT_EQ(inSpanish("Memory: %@", {"16 GB"}), "Memoria: 16 GB");
    EXPECT_EQ(inEnglish("%@, %@", {"1,5", "%@"}), "1,5, %@");
    EXPECT_EQ(inEnglish("%@ and %@", {"one"}), "one and %@");
    EXPECT_EQ(inEnglish("plain", {"unused"}), "plain");
    EXPECT_EQ(inEnglish("Tested on %@ with Tessivo. Everything below is copied from the condition report.",
                        {"March 5, 2026"}),
              "Tested on March 5, 2026 with Tessivo. Everything below is copied from the condition report.");
}

TEST(Strings, aTextWithoutArgumentsIsNoFormat) {
    EXPECT_EQ(inEnglish("100% of %@ %d %%"), "100% of %@ %d %%");
    EXPECT_EQ(inSpanish("100% of %@ %d %%"), "100% of %@ %d %%"); // not in the table either
    EXPECT_EQ(inSpanish("Keyboard"), "Teclado");
    EXPECT_EQ(inEnglish("Keyboard"), "Keyboard"); // though the table has been loaded
}

TEST(Strings, onlyAnObjectOfTextsIsATable) {
    using Table = std::map<std::string, std::string>;
    const std::pair<std::string, Table> rows[] = {
        {R"({"a": "b", "ñ": "\u00f1 “%@”"})", {{"a", "b"}, {"ñ", "ñ “%@”"}}},
        {"{}", {}},
        {"", {}},
        {" \n", {}},
        {"null", {}},
        {R"(["a", "b"])", {}},
        {R"({"a": "b", "c": 1})", {}},
        {R"({"a": "b", "c": null})", {}},
        {R"({"a": "b", "c": {"d": "e"}})", {}},
        {R"({"a": "b",})", {}},
        {R"({"a": "b"} x)", {}},
        {R"({"a": "b")", {}},
        {R"({"a": "b" /* c */})", {}},
        {R"({"a": "\ud800"})", {}},
        {"{\"a\": \"\xff\"}", {}},
        {"{\"a\": \"line\nfeed\"}", {}},
        {std::string("{\"a\": \"b\"}\0", 11), {}},
        {std::string(5000, '['), {}},
    };
    for (const auto& [json, table] : rows)
        EXPECT_EQ(Strings::parseTable(json), table) << json.substr(0, 60);
}

TEST(Strings, theFirstTableThereIsCountsAndABrokenOneMeansEnglish) {
    const std::filesystem::path folder = testing::TempDir() + "strings-" + std::to_string(getpid());
    std::filesystem::create_directories(folder / "a-folder");
    const auto put = [&](const char* name, const std::string& text) {
        std::ofstream(folder / name) << text;
        return folder / name;
    };
    const auto good = put("good.json", R"({"Keyboard": "Teclado"})");
    const auto broken = put("broken.json", "{");
    const auto huge = put("huge.json", R"({"a": ")" + std::string(2 << 20, 'x') + "\"}");
    EXPECT_EQ(Strings::loadTable({folder / "missing.json", good}).size(), 1u);
    EXPECT_TRUE(Strings::loadTable({broken, good}).empty());
    EXPECT_TRUE(Strings::loadTable({huge}).empty());
    EXPECT_TRUE(Strings::loadTable({folder / "a-folder"}).empty());
    EXPECT_TRUE(Strings::loadTable({}).empty());
    std::filesystem::remove_all(folder);
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

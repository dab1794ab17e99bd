#include "kit/Samples.h"
#include "kit/listing/Lang.h"
#include "kit/listing/Numbers.h"
#include "kit/listing/Strings.h"
#include "kit/listing/WordingGuard.h"
#include "kit/listing/WordingPolish.h"
#include "kit/support/Text.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace tessivo;

namespace {

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

/// What the words are in English and in Spanish.
template <class Words>
std::pair<std::string, std::string> inBoth(Words words) {
    return {Lang::with("en", words), Lang::with("es", words)};
}

} // namespace

TEST(SpanishTable, leavesNothingOfTheListingOrTheGuardInEnglish) {
    ConditionReport report;
    report.machine = Samples::machine();
    report.machine.modelID = "X1";
    report.notes = "ñ";
    for (const TestStatus status : allCases<TestStatus>())
        for (const TestID test : allCases<TestID>())
            report.results.push_back({test, status, "ñ", {}, {}});
    const auto listed = [&](const std::vector<TestResult>& results) {
        report.results = results;
        return inBoth([&] { return ListingTemplate::make(report, true).text; });
    };
    // Facts, and what is alike in both languages.
    const auto isAlike = [](const std::string& line) {
        return line == "ñ" || line.starts_with("- macOS: ") || line.starts_with("- Chip: ") ||
               line.starts_with("- Trackpad");
    };
    for (const auto& [english, spanish] : {listed(report.results), listed({})}) {
        const auto lines = Text::lines(english), words = Text::lines(spanish);
        ASSERT_EQ(lines.size(), words.size());
        for (std::size_t i = 0; i < lines.size(); ++i)
            if (!isAlike(lines[i])) {
                EXPECT_NE(lines[i], words[i]);
            }
    }
    for (const auto kind : allCases<GuardIssue::Case>()) {
        const auto [english, spanish] = inBoth([&] { return GuardIssue{kind, "7"}.message(); });
        EXPECT_NE(english, spanish);
    }
    for (const auto availability :
         {WordingAvailability::turnedOff, WordingAvailability::notReady, WordingAvailability::unsupported}) {
        const auto [english, spanish] = inBoth([&] { return *availabilityMessage(availability); });
        EXPECT_NE(english, spanish);
    }
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

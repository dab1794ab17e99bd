#include "kit/listing/Numbers.h"
#include "kit/support/Text.h"
#include "tests/kit/listing/ListingReports.h"

#include <gtest/gtest.h>

using namespace tessivo;
using ListingReports::writeUp;
using Case = GuardIssue::Case;
using Issues = std::vector<GuardIssue>;

namespace {

ListingWriteUp bound(const std::string& text, std::vector<std::string> fixed = {},
                     std::int64_t problems = 0) {
    ListingWriteUp made;
    made.text = text;
    made.facts = {std::move(fixed), Numbers::find(text), problems};
    made.language = "en";
    return made;
}

Issues check(const std::string& text, const ListingWriteUp& made) {
    return WordingGuard::check(text, made);
}

std::string times(std::size_t count, const std::string& unit) {
    std::string text;
    while (count-- > 0)
        text += unit;
    return text;
}

Issues claims(std::initializer_list<const char*> texts) {
    Issues issues;
    for (const char* text : texts)
        issues.push_back({Case::addedClaim, text});
    return issues;
}

} // namespace

TEST(WordingGuard, comparesWithoutRegardToCaseQuotesDashesEmphasisAndLines) {
    const std::pair<std::string, std::string> rows[] = {
        {"  It’s ‘Fine’ \r\n“OK” \u00a0 – yes\u2028— **Bold** __text__\t",
         "it's 'fine' \"ok\" - yes - bold text"},
        {"ÁRBOL ÑANDÚ", "árbol ñandú"},
        {"***a*** _b_ *c* ____", "*a* _b_ *c*"},
        {"_**_x", "x"}, // stars go first, which makes a pair of lines
        {"ΟΔΟΣ ΣΑΣ", "οδος σας"},
        {"** __ \n", ""},
        {"", ""}};
    for (const auto& [text, form] : rows)
        EXPECT_EQ(WordingGuard::normalized(text), form) << text;
}

TEST(WordingGuard, everyTemplatePassesItself) {
    ConditionReport odd = ListingReports::mixed();
    odd.notes = "\u0301tilde\r\n**star* __ ΟΔΟΣ 👨‍👩‍👧‍👦 \u0600\n\u0301";
    odd.machine.chip = "\u0308";
    odd.machine.osVersion = "🇪🇸\u200d";
    for (const ConditionReport& report : {ListingReports::mixed(), ListingReports::clean(), odd}) {
        for (const char* language : {"en", "es"}) {
            const ListingWriteUp made = writeUp(report, language, true);
            EXPECT_EQ(check(made.text, made), Issues{}) << made.text;
            EXPECT_EQ(check(Text::replaced(made.text, "\n", " "), made), Issues{});
        }
    }
}

TEST(WordingGuard, anEmptyAnswerIsOneFinding) {
    const ListingWriteUp made = writeUp(ListingReports::mixed());
    for (const char* text : {"", " \n\t", "**", "\u2003__\r\n"})
        EXPECT_EQ(check(text, made), (Issues{{Case::empty, ""}})) << text;
}

TEST(WordingGuard, countsLengthInCharactersAsAReaderSeesThem) {
    const ListingWriteUp made = bound("Two 👨‍👩‍👧‍👦\r\né"); // seven characters
    for (const char* unit : {"x", "é", "e\u0301", "👨‍👩‍👧‍👦", "🇪🇸"}) {
        EXPECT_EQ(check(times(214, unit), made), Issues{}) << unit;
        EXPECT_EQ(check(times(215, unit), made), (Issues{{Case::tooLong, ""}})) << unit;
    }
    EXPECT_EQ(check(times(213, "\r\n") + "x", made), Issues{});
    EXPECT_EQ(check(times(214, "\r\n") + "x", made), (Issues{{Case::tooLong, ""}}));
}

TEST(WordingGuard, findsFactsAsTheyRead) {
    const struct {
        const char* fact;
        const char* text;
        bool kept;
    } rows[] = {
        {"16 GB", "a 16 GB Mac", true},
        {"16 GB", "a 16\n GB Mac", true},
        {"16 GB", "116 GBs", true}, // facts are plain, not bounded
        {"16 GB", "16GB", false},
        {"The “N” key — often", "the \"n\"\r\nKEY - often", true},
        {"The “N” key", "the 'n' key", false},
        {"Cámara", "CA\u0301MARA", true},
        {"Ca\u0301mara", "la cámara", true},
        {"camara", "cámara", false},
        {"Camara", "camara\u0301", false}, // the last letter is another one
        {"\u1e9b\u0323", "\u017f\u0323\u0307", true},
        {"ΟΔΟΣ", "ΟΔΟΣ's", true},
        {"ΟΔΟΣ", "οδος", true},
        {"Dented", "**Den**ted", true},
        {"👨‍👩‍👧‍👦", "a 👨‍👩‍👧‍👦!", true},
        {"👨‍👩‍👧", "a 👨‍👩‍👧‍👦!", false}, // part of a family
        {"a note", "a note\u200d", false},                             // a joiner on its last letter
        {"line\nfeed", "line\r\n\r\nfeed", true},
        {"**", "anything", true},
        {"İstanbul", "i\u0307stanbul", true},
    };
    for (const auto& [fact, text, kept] : rows) {
        ListingWriteUp made = bound(fact + std::string(" ") + text, {fact});
        made.facts.numbers = Numbers::find(text);
        EXPECT_EQ(check(text, made), kept ? Issues{} : (Issues{{Case::missingFact, fact}}))
            << fact << " in " << text;
    }
}

TEST(WordingGuard, numbersHaveNoTolerance) {
    const ListingWriteUp made = bound("10 9 16.0 1.5 143");
    EXPECT_EQ(check("143 cycles, 1.5, 16.0, 9, 10.", made), Issues{});
    EXPECT_EQ(check("10 9 16 1,5 143 20", made), (Issues{{Case::addedNumber, "1,5"},
                                                         {Case::addedNumber, "16"},
                                                         {Case::addedNumber, "20"},
                                                         {Case::missingNumber, "1.5"},
                                                         {Case::missingNumber, "16.0"}}));
    EXPECT_EQ(check("١٠ 9 16.0 1.5 143", made),
              (Issues{{Case::addedNumber, "١٠"}, {Case::missingNumber, "10"}}));
}

TEST(WordingGuard, claimsAreWordsOfTheirOwn) {
    const ListingWriteUp made = bound("A Mac with 2 ports");
    const std::pair<const char*, Issues> rows[] = {
        {"Perfectly fine, 2", claims({"perfectly"})},
        {"imperfect perfection minted peppermint, 2", {}},
        {"garanti\u0301a, 2", claims({"garantía"})},
        {"GARANTI\u0301A, 2", claims({"garantía"})},
        {"garantia nuevõs mint\u0301ed excelențes 2", {}}, // other words, whatever marks they have
        {"como\n\nnuevo 2", claims({"como nuevo", "nuevo"})},
        {"**Like** __new__ 2", claims({"like new"})},
        {"2mint 2 mint2", {}},
        {"mint½ ñmint mintж 字mint ²mint 2", {}},
        {"unminted mint-green 2", claims({"mint"})}, // behind a hit that is no word
        {"applecare/warranty, certified_verified 2",
         claims({"certified", "verified", "warranty", "applecare"})},
        {"(100%x 2", {{Case::addedNumber, "100"}}},
        {"100% working 2", {{Case::addedNumber, "100"}, {Case::addedClaim, "100%"}}},
    };
    for (const auto& [text, issues] : rows)
        EXPECT_EQ(check(text, made), issues) << text;
    EXPECT_EQ(check("(100%), 2", bound("2 100")), claims({"100%"}));
}

TEST(WordingGuard, noMarkNorMakeOfLetterHidesAClaim) {
    for (const char* text : {"👍mint👍", "“mint”", "mint\u0301", "mint\u200d!", "mint\ufe0f", "\u0600mint",
                             "\u202emint\u202c", "mi\u200bnt", "MI\u2060NT", "mi\u00adnt", "\u2066m\u2069int",
                             "mint\u3164", "ｍｉｎｔ", "𝗺𝗶𝗻𝘁", "Ⓜⓘⓝⓣ", "＊＊mi＊＊nt"})
        EXPECT_EQ(check(text, bound("A Mac")), claims({"mint"})) << text;
    // Nor a mark that becomes one letter with one of the claim, nor one more on a letter that has its own.
    const std::pair<const char*, Issues> marked[] = {
        {"nuevõ", claims({"nuevo"})},
        {"como nuevö!", claims({"como nuevo", "nuevo"})},
        {"perfectó", claims({"perfecto"})},
        {"excellenţ", claims({"excellent"})},
        {"garantía\u0323, garantía\u0301", claims({"garantía"})},
        {"garantị́a, garantí\u0306a, pasọ́ todas", claims({"garantía", "pasó todas"})},
        {"nuëvo, m\u0301\u0323int", claims({"mint", "nuevo"})},
        {"warrantý; ＭＩＮṬ", claims({"mint", "warranty"})},
        {"flawlesş, word for worḍ", claims({"word for word", "flawless"})}};
    for (const auto& [text, issues] : marked) {
        EXPECT_EQ(check(text, bound("A Mac")), issues) << text;
        EXPECT_EQ(check(text, bound(std::string("The seller says: ") + text)), Issues{}) << text;
    }
    for (const char* control : {"\x01", "\x1b", "\x7f", "\u0080", "\u009f"}) {
        const std::string hidden = std::string("A mi") + control + "nt Mac, como nue" + control + "võ";
        EXPECT_EQ(check(hidden, bound("A Mac")), claims({"mint", "como nuevo", "nuevo"})) << hidden;
        EXPECT_EQ(check(std::string("pepper") + "mi" + control + "nts", bound("A Mac")), Issues{});
    }
    EXPECT_EQ(check("ﬂawless, like \u200b new, perfectª", bound("A Mac")),
              claims({"like new", "flawless", "perfecta"}));
    EXPECT_EQ(check("word\u200b for word", bound("A Mac")), claims({"word for word"}));
    EXPECT_EQ(check("peppermi\u200bnt mint²", bound("A Mac")), Issues{});
    // As the seller wrote it, or plainer, but no claim out of a word that isn't one.
    EXPECT_EQ(check("mi\u200bnt mint\u200d", bound("mi\u200bnt mint\u200d")), Issues{});
    EXPECT_EQ(check("ｍｉｎｔ", bound("mint")), Issues{});
    EXPECT_EQ(check("mint", bound("mi\u200bnt")), claims({"mint"}));
}

TEST(WordingGuard, whatTheTemplateSaysIsNoAddedClaim) {
    const ListingWriteUp notes = bound("The seller says: Works great, 100% original");
    EXPECT_EQ(check("works GREAT - 100% original", notes), Issues{});
    // But the template must have it as a word of its own, too.
    EXPECT_EQ(check("mint", bound("peppermint")), claims({"mint"}));

    for (const char* text : {"No problems found.", "There were no issues", "Sin problemas, de verdad"}) {
        EXPECT_EQ(check(text, bound("x", {}, 0)), Issues{}) << text;
        EXPECT_EQ(check(text, bound("x", {}, 1)).size(), 1u) << text;
    }
    EXPECT_EQ(check("no problems, no issues", bound("x", {}, 2)), claims({"no issues", "no problems"}));
}

TEST(WordingGuard, catchesItsOwnInstructions) {
    const ListingWriteUp made = bound("A Mac");
    EXPECT_EQ(check("These phrases must appear word\nfor word", made),
              claims({"word for word", "these phrases must appear"}));
    EXPECT_EQ(check("xpalabra por palabrax", made), claims({"palabra por palabra"})); // plain, not bounded
    EXPECT_EQ(check("word for word", bound("copied Word for Word")), Issues{});
}

TEST(WordingGuard, findingsComeInTheirOrder) {
    const ListingWriteUp made = writeUp(ListingReports::clean(), "en", true);
    std::string text = "8.5 nuevo word for word mint ";
    text.append(3000, 'z');
    const Issues issues = check(text, made);
    Issues expected = {{Case::tooLong, ""}};
    for (const std::string& fact : made.facts.fixed)
        expected.push_back({Case::missingFact, fact});
    expected.push_back({Case::addedNumber, "8.5"});
    for (const std::string& number : made.facts.numbers)
        expected.push_back({Case::missingNumber, number});
    for (const char* claim : {"word for word", "mint", "nuevo"})
        expected.push_back({Case::addedClaim, claim});
    EXPECT_EQ(issues, expected);
    ASSERT_EQ(made.facts.fixed.back(), "J4N7WQX2PL");
}

TEST(WordingGuard, hostileTextsAreJustTexts) {
    const ListingWriteUp made = bound("A Mac", {"A Mac"});
    const std::string rows[] = {std::string("A Mac\0mint", 10), "A Mac \xff\xfe mint \xc3",
                                "\u202eA Mac\u202c mint", "A Mac " + std::string(100, '\r') + "mint"};
    for (const std::string& text : rows)
        EXPECT_EQ(check(text, made), claims({"mint"}));
    std::string endless = "A Mac";
    endless.append(1 << 20, 'a');
    EXPECT_EQ(check(endless, made), (Issues{{Case::tooLong, ""}}));
}

TEST(GuardIssue, readsInBothLanguages) {
    const std::tuple<GuardIssue, const char*, const char*> rows[] = {
        {{Case::missingFact, "16 GB"}, "It left out or changed “16 GB”.", "Omitió o cambió “16 GB”."},
        {{Case::addedNumber, "3"},
         "It added the number 3, which isn't in the report.",
         "Añadió el número 3, que no está en el informe."},
        {{Case::missingNumber, "1,5"}, "It dropped the number 1,5.", "Omitió el número 1,5."},
        {{Case::addedClaim, "100%"},
         "It said “100%”, which the report doesn't.",
         "Dijo “100%”, y el informe no lo dice."},
        {{Case::empty, ""}, "It came back empty.", "Llegó vacía."},
        {{Case::tooLong, ""},
         "It came back much longer than the report.",
         "Llegó mucho más larga que el informe."},
    };
    for (const auto& [issue, english, spanish] : rows) {
        EXPECT_EQ(Lang::with("en", [&, i = issue] { return i.message(); }), english);
        EXPECT_EQ(Lang::with("es", [&, i = issue] { return i.message(); }), spanish);
    }
}

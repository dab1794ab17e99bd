#include "kit/support/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <stdlib.h>
#include <thread>

namespace tessivo::Text {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Text, changesCaseWithoutALocale) {
    EXPECT_EQ(lowercased("MacBook PRO 14"), "macbook pro 14");
    EXPECT_EQ(lowercased("GARANTÍA Ω ΣΑΣ"), "garantía ω σας"); // the last sigma is a final one
    EXPECT_EQ(lowercased("ΣΑΣ."), "σας.");
    EXPECT_EQ(lowercased("I"), "i");
    EXPECT_EQ(uppercased("straße 2 @[`{"), "STRASSE 2 @[`{");
    EXPECT_EQ(lowercased("Ä\xFFZ"), "ä\uFFFDz");
}

TEST(Text, trimsWhiteSpaceOrBlanksAlone) {
    EXPECT_EQ(trimmed("\u2028\u00A0\r\n\t a  b \u3000\u0085\v\f\n"), "a  b");
    EXPECT_EQ(trimmed(" \n "), "");
    EXPECT_EQ(trimmed(""), "");
    EXPECT_EQ(trimmed("\u200B\u200D"), "\u200B\u200D"); // no white space, though they have no width
    EXPECT_EQ(trimmed(" \x80\x80\x80\x80\x80 "), "\x80\x80\x80\x80\x80");
    EXPECT_EQ(trimmedBlanks(" \t a \n\t"), "a \n");
    EXPECT_EQ(trimmedBlanks("\u00A0 a"), "\u00A0 a");
}

TEST(Text, repairsWhatIsNoUTF8) {
    EXPECT_EQ(repaired("plain é 日"), "plain é 日");
    EXPECT_EQ(repaired("\xC0\xAF|\xE2\x82|\xED\xA0\x80|\xF0\x9F\x98"),
              "\uFFFD\uFFFD|\uFFFD|\uFFFD\uFFFD\uFFFD|\uFFFD");
    EXPECT_EQ(repaired(std::string("\0\xFF\uFFFD", 5)), std::string("\0\uFFFD\uFFFD", 7));
    EXPECT_EQ(repaired(std::string(100'000, '\xF0')).size(), 300'000u);
}

TEST(Text, splitsAtEveryLineBreakAndDropsEmptyLines) {
    EXPECT_THAT(lines("a\r\nb\n\nc\u2028d\u2029e\u0085f\vg\fh"),
                ElementsAre("a", "b", "c", "d", "e", "f", "g", "h"));
    EXPECT_THAT(lines("\n\r\n"), IsEmpty());
    EXPECT_EQ(collapsed("  a\u00A0b\n c "), "a b c");
    EXPECT_EQ(collapsed(" \u2003"), "");
}

TEST(Text, countsUserPerceivedCharacters) {
    const std::pair<std::string, std::size_t> rows[] = {
        {"", 0},
        {"abc", 3},
        {"a\r\nb", 3},
        {"\n\r", 2},
        {"\r\r\n\n", 3},
        {"e\u0301", 1},
        {"👩‍👩‍👧‍👦", 1},
        {"🇪🇸🇫🇷", 2},
        {"é\r\n", 2},
        {"நி", 1},
        {std::string(3, '\0'), 3},
        {"\xFF\xFE", 2},
        {"a" + std::string(10'000, '\xCC') + "\x81", 10'000},
    };
    for (const auto& [text, count] : rows)
        EXPECT_EQ(characterCount(text), count) << text.substr(0, 30);
}

TEST(Text, judgesNeighboursByTheirWholeCharacter) {
    for (const char* text : {"a", "9", "é", "e\u0301", "e\u0301\u0302", "ñ", "日", "Ⅳ", "½", "٣", "ß",
                             "\u0600"
                             "1"})
        EXPECT_TRUE(endsWithLetterOrNumber(text) && beginsWithLetterOrNumber(text)) << text;
    for (const char* text :
         {"", "-", "%", "“", "👩‍👩‍👧", "🇪🇸", " ", "\r\n", "_", "€", "\u200D", "\xFF", "-\u0301"})
        EXPECT_FALSE(endsWithLetterOrNumber(text) || beginsWithLetterOrNumber(text)) << text;
    EXPECT_TRUE(endsWithLetterOrNumber(" - x"));
    EXPECT_FALSE(endsWithLetterOrNumber("x -"));
    EXPECT_FALSE(endsWithLetterOrNumber("1\uFE0F\u20E3 👍🏽"));
    EXPECT_TRUE(endsWithLetterOrNumber(std::string(5'000, 'x').append("e\u0301")));
    EXPECT_NO_FATAL_FAILURE(endsWithLetterOrNumber("a" + std::string(5'000, '\x81')));
}

TEST(Text, replacesAndJoins) {
    EXPECT_EQ(replaced("aXXbXX", "XX", "X"), "aXbX");
    EXPECT_EQ(replaced("aaa", "aa", "b"), "ba");
    EXPECT_EQ(replaced("abc", "", "x"), "abc");
    EXPECT_EQ(joined({"a", "", "b"}, ", "), "a, , b");
    EXPECT_EQ(joined({}, ", "), "");
}

TEST(Text, groupsNumbersAsTheUsersFormatsDo) {
    const struct {
        const char *all, *numeric, *language, *texts;
    } rows[] = {{"", "", "", "4,103 10,000"},
                {"", "", "en_US.UTF-8", "4,103 10,000"},
                {"", "es_ES.UTF-8", "en_US.UTF-8", "4103 10.000"}, // Spain leaves four digits alone
                {"", "de_DE@euro", "en_US.UTF-8", "4.103 10.000"},
                {"C.UTF-8", "es_ES.UTF-8", "es_ES.UTF-8", "4,103 10,000"},
                {"es_MX.UTF-8", "es_ES.UTF-8", "de_DE.UTF-8", "4,103 10,000"},
                {"", "C", "de_DE.UTF-8", "4,103 10,000"},
                {"", "zz_ZZ", "", "4,103 10,000"}};
    constexpr const char* names[] = {"LC_ALL", "LC_NUMERIC", "LANG"};
    std::map<const char*, std::string> before;
    for (const char* name : names)
        if (const char* value = std::getenv(name)) before[name] = value;
    for (const auto& [all, numeric, language, texts] : rows) {
        ::setenv(names[0], all, 1);
        ::setenv(names[1], numeric, 1);
        ::setenv(names[2], language, 1);
        std::string grouping;
        // Each thread asks once for the user's formats.
        std::thread([&] { grouping = grouped(4103) + ' ' + grouped(10'000); }).join();
        EXPECT_EQ(grouping, texts) << all << '|' << numeric << '|' << language;
    }
    for (const char* name : names)
        before.contains(name) ? ::setenv(name, before[name].c_str(), 1) : ::unsetenv(name);
}

TEST(Text, writesNumbers) {
    EXPECT_EQ(grouped(4103), "4,103");
    EXPECT_EQ(grouped(-1234567), "-1,234,567");
    EXPECT_EQ(grouped(999), "999");
    EXPECT_EQ(grouped(std::numeric_limits<std::int64_t>::min()), "-9,223,372,036,854,775,808");
    const std::pair<double, const char*> wholes[] = {{0.5, "1"},
                                                     {-0.5, "-1"},
                                                     {-0.4, "0"},
                                                     {2.5, "3"},
                                                     {-12.5, "-13"},
                                                     {99.96, "100"},
                                                     {1e15, "1000000000000000"}};
    for (const auto& [value, text] : wholes)
        EXPECT_EQ(whole(value), text) << value;
    EXPECT_EQ(tenths(1.5), "1.5");
    EXPECT_EQ(tenths(0.05), "0.1");
    EXPECT_EQ(tenths(99.95), "100.0");
    EXPECT_EQ(tenths(2), "2.0");
    EXPECT_EQ(whole(-1.7e308).size(), 310u);
    EXPECT_EQ(tenths(1.7e308).size(), 311u);
    EXPECT_EQ(whole(HUGE_VAL), "inf");
}

TEST(Text, putsATextOnOneLine) {
    EXPECT_EQ(singleLine("a\r\nb\tc\u2028d\u0085e\x7F"), "a  b c d e ");
    EXPECT_EQ(singleLine("é“x”"), "é“x”");
}

} // namespace
} // namespace tessivo::Text

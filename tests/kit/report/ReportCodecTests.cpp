#include "kit/report/HistoryStore.h"
#include "kit/support/Json.h"
#include "kit/support/Text.h"
#include "tests/kit/RandomSession.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

ConditionReport smallReport() {
    ConditionReport report;
    report.id = *Uuid::parse("6F9619FF-8B86-D011-B42D-00CF4FC964FF");
    report.created = *Date::fromISO8601("2026-03-05T16:07:09Z");
    report.machine = {"Mac14,2", "C02TEST", std::nullopt, 8'589'934'592, "14.4", std::nullopt};
    report.results = {
        {TestID::display, TestStatus::works, "No dead pixels", {"Seen: \"all\""}, std::nullopt}};
    report.pickup = {{"Storage", "512 GB drive", 5}};
    report.appVersion = "1.0";
    report.notes = "Línea\n2";
    return report;
}

const char* const smallText = R"({
  "appVersion": "1.0",
  "created": "2026-03-05T16:07:09Z",
  "id": "6F9619FF-8B86-D011-B42D-00CF4FC964FF",
  "machine": {
    "memoryBytes": 8589934592,
    "modelID": "Mac14,2",
    "osVersion": "14.4",
    "serial": "C02TEST"
  },
  "notes": "Línea\n2",
  "pickup": [
    {
      "expect": "512 GB drive",
      "seconds": 5,
      "title": "Storage"
    }
  ],
  "results": [
    {
      "details": [
        "Seen: \"all\""
      ],
      "status": "works",
      "summary": "No dead pixels",
      "test": "display"
    }
  ]
}
)";

std::string faultOf(const std::string& json) {
    try {
        HistoryStore::decode(json);
    } catch (const DecodingError& error) {
        return error.what();
    }
    return "read";
}

TEST(ReportCodec, theFormIsPrettyWithSortedKeysAndISODates) {
    EXPECT_EQ(HistoryStore::encode(smallReport()), smallText);
    EXPECT_EQ(HistoryStore::decode(smallText), smallReport());
    ConditionReport bare = smallReport();
    bare.results.clear();
    bare.handover.emplace();
    EXPECT_NE(HistoryStore::encode(bare).find("\"results\": []\n}"), std::string::npos);
    EXPECT_EQ(HistoryStore::decode(HistoryStore::encode(bare)), bare);
}

TEST(ReportCodec, randomReportsComeBackEqual) {
    RandomSession random(2);
    for (int i = 0; i < 2'000; ++i) {
        const ConditionReport report = random.report();
        const std::string text = HistoryStore::encode(report);
        ASSERT_EQ(HistoryStore::decode(text), report) << text;
    }
}

TEST(ReportCodec, aFractionOfASecondIsLostAndNothingElse) {
    ConditionReport report = smallReport();
    report.created.seconds += 0.75;
    EXPECT_EQ(HistoryStore::decode(HistoryStore::encode(report)), smallReport());
    report.created.seconds = -0.25; // before 2001, too, it is the second that has begun
    EXPECT_EQ(HistoryStore::decode(HistoryStore::encode(report)).created, Date{-1});
}

TEST(ReportCodec, aDateThatNoFileCanHoldIsRefusedOnWriting) {
    for (double seconds : {1e12, -1e12, 1e300, std::nan(""), HUGE_VAL, 252'455'616'000.0}) {
        ConditionReport report = smallReport();
        report.created.seconds = seconds;
        EXPECT_THROW(HistoryStore::encode(report), std::invalid_argument) << seconds;
    }
}

TEST(ReportCodec, hardTextsAreKeptAsTheyAre) {
    const std::string texts[] = {std::string("a\0b", 3), "\u202Eright to left\u202C", "a\r\nb\u2028c",
                                 "%@ %s %n", std::string(1 << 20, 'n')};
    for (const std::string& text : texts) {
        ConditionReport report = smallReport();
        report.notes = report.results[0].summary = report.machine.modelID = text;
        EXPECT_EQ(HistoryStore::decode(HistoryStore::encode(report)), report) << text.substr(0, 40);
    }
}

TEST(ReportCodec, faultsNameTheirPath) {
    const auto with = [](const char* what, const char* instead) {
        return faultOf(Text::replaced(smallText, what, instead));
    };
    EXPECT_EQ(with("\"works\"", "\"great\""), "results[0].status: unknown case \"great\"");
    EXPECT_EQ(with("2026-03-05T16:07:09Z", "2026-02-30T16:07:09Z"),
              "created: not a date: \"2026-02-30T16:07:09Z\"");
    EXPECT_EQ(with("\"2026-03-05T16:07:09Z\"", "794419629"), "created: not a text but a number");
    EXPECT_EQ(with("6F9619FF-", "6F9619FF"), "id: not a UUID: \"6F9619FF8B86-D011-B42D-00CF4FC964FF\"");
    EXPECT_EQ(with("6F9619FF", "6f9619ff"), "read");
    EXPECT_EQ(with("\"seconds\": 5", "\"seconds\": 5.5"), "pickup[0].seconds: not a whole number");
    EXPECT_EQ(with("\"seconds\": 5", "\"seconds\": 9223372036854775808"), "pickup[0].seconds: out of range");
    for (const char* key : {"appVersion", "created", "id", "machine", "notes", "pickup", "results"}) {
        EXPECT_EQ(with(("\"" + std::string(key) + "\":").c_str(), "\"other\":"),
                  std::string(key) + ": missing");
    }
}

TEST(ReportCodec, theMessageOfAFaultIsShortAndOnOneLine) {
    const std::string long40 = "\"" + std::string(39, 'x') + "é and on\"";
    EXPECT_EQ(faultOf(Text::replaced(smallText, "\"works\"", long40)),
              "results[0].status: unknown case \"" + std::string(39, 'x') + "…\"");
    EXPECT_EQ(faultOf(Text::replaced(smallText, "\"works\"", "\"a\\nb\\u0000\"")),
              "results[0].status: unknown case \"a b \"");
}

std::string nested(std::size_t depth, const char* open, const char* close, const char* inside) {
    std::string text;
    for (std::size_t i = 0; i < depth; ++i)
        text += open;
    text += inside;
    for (std::size_t i = 0; i < depth; ++i)
        text += close;
    return text;
}

/// What stands under a key that no report has: JSON is read over, everything else refuses the whole.
TEST(ReportCodec, shapesThatParsersDisagreeOn) {
    const std::string read = "read";
    const std::string broken = "isn't JSON";
    const std::string number = "isn't JSON: a number is malformed or too large";
    const std::string escape = "isn't JSON: a text holds a broken escape";
    const std::string control = "isn't JSON: a text holds a bare control character";
    const std::string deep = "is nested too deeply";
    const std::string utf8 = "isn't UTF-8 text";
    const std::pair<std::string, std::string> rows[] = {
        // numbers
        {"-0", read},
        {"-0.0", read},
        {"1E+2", read},
        {"1e-400", read},
        {"0e1", read},
        {"1e400", read},
        {"-1e99999", read},
        {"123456789012345678901234567890", read},
        {"-9223372036854775809", read},
        {"18446744073709551616", read},
        {"[1e400, {\"a\": -1e400}]", read},
        {std::string(5000, '9'), read},
        {"0." + std::string(5000, '1'), read},
        {"01", number},
        {"-01", number},
        {"1.", number},
        {"1.e1", number},
        {"1e", number},
        {"1e+", number},
        {"-", number},
        {"0x10", number},
        {"1_000", number},
        {"1e4.5", number},
        {"--1", number},
        {"1-1", number},
        {"+1", broken},
        {".5", broken},
        {"NaN", broken},
        {"Infinity", broken},
        {"-Infinity", number},
        {"1 000", broken},
        {"１", broken},
        {"[1e400 01]", broken},
        // texts
        {R"("\u0000")", read},
        {R"("\ud83d\ude00")", read},
        {R"("\uFFFF")", read},
        {R"("\/")", read},
        {"\"\x7F\"", read},
        {"\"\u2028\"", read},
        {"\"\uFEFF\"", read},
        {"\"1e400\"", read},
        {R"("\ud800")", escape},
        {R"("\udc00")", escape},
        {R"("\ud800\ud800")", escape},
        {R"("\ud800x")", escape},
        {R"("\udc00\ud800")", escape},
        {R"("\u12")", escape},
        {R"("\u00G0")", escape},
        {R"("\x41")", escape},
        {R"("\a")", escape},
        {R"("\U0041")", escape},
        {"'a'", broken},
        {"\"\n\"", control},
        {"\"\t\"", control},
        {std::string("\"\0\"", 3), control},
        {"\"\xFF\"", utf8},
        {"\"\xC0\xAF\"", utf8},
        {"\"\xED\xA0\x80\"", utf8},
        {"\"\xF4\x90\x80\x80\"", utf8},
        {"\"\xE2\x82\"", utf8},
        {"\"\xF0\x80\x80\x80\"", utf8},
        // structure
        {"[]", read},
        {"{}", read},
        {"[[],[[]]]", read},
        {R"({"":0})", read},
        {R"({"a":1,"a":2})", read},
        {"null", read},
        {" \t\r\n[ ] ", read},
        {nested(900, "[", "]", ""), read},
        {nested(900, "{\"a\":", "}", "0"), read},
        {nested(100'000, "[", "]", ""), deep},
        {nested(100'000, "[", "", ""), deep},
        {nested(100'000, "{\"a\":", "}", "0"), deep},
        {nested(100'000, "{\"a\":", "", ""), deep},
        {"[1,]", broken},
        {"[,1]", broken},
        {"[1,,2]", broken},
        {"[1 2]", broken},
        {"[1", broken},
        {"]", broken},
        {"[1}", broken},
        {R"({"a":1,})", broken},
        {R"({"a" 1})", broken},
        {R"({"a":})", broken},
        {R"({a:1})", broken},
        {R"({1:1})", broken},
        {R"({"a":1 "b":2})", broken},
        {R"({"a":1:2})", broken},
        {"", broken},
        {"True", broken},
        {"nul", broken},
        {"nulll", broken},
        {"truefalse", broken},
        {"undefined", broken},
        {"1 // one", broken},
        {"/* one */ 1", broken},
        {"# 1", broken},
        {"\x0B"
         "1",
         broken},
        {"\u00A0"
         "1",
         broken},
        {std::string("\0", 1) + "1", broken},
        {"\\u0031", broken},
    };
    for (const auto& [shape, outcome] : rows) {
        const std::string text = "{\"future\": " + shape + "," + std::string(smallText).substr(1);
        EXPECT_EQ(faultOf(text), outcome) << shape.substr(0, 60);
    }
}

TEST(ReportCodec, whatStandsAroundTheDocument) {
    const std::string text = smallText;
    const std::string utf16 = [&] {
        std::string wide = "\xFF\xFE";
        for (char letter : text)
            (wide += letter) += '\0';
        return wide;
    }();
    const std::pair<std::string, std::string> rows[] = {
        {"\xEF\xBB\xBF" + text, "read"},
        {" \n\t\r" + text + "\n\n ", "read"},
        {"\xEF\xBB\xBF\xEF\xBB\xBF" + text, "isn't JSON"},
        {text + "x", "isn't JSON"},
        {text + text, "isn't JSON"},
        {text + ",", "isn't JSON"},
        {text + std::string(1, '\0'), "isn't JSON"},
        {utf16, "isn't JSON: a text holds a bare control character"},
        {"", "isn't JSON: it is empty"},
        {"\xEF\xBB\xBF", "isn't JSON: it is empty"},
        {" \n ", "isn't JSON: it is empty"},
        {"{", "isn't JSON"},
        {"\"", "isn't JSON: a text doesn't end"},
        {"[" + text + "]", "not an object but a list"},
        {"null", "not an object but null"},
        {"1e400", "not an object but a list"},
        {"{}", "id: missing"},
        {std::string(10 << 20, '['), "isn't JSON"},
        {std::string(10 << 20, ' '), "isn't JSON: it is empty"},
        {std::string(10 << 20, 'x'), "isn't JSON"},
    };
    for (const auto& [shape, outcome] : rows)
        EXPECT_EQ(faultOf(shape), outcome) << shape.substr(0, 20) << " " << shape.size();
}

/// Whatever becomes of the bytes, they are either a report that can be written again or a fault with a
/// reason.
void expectOutcome(const std::string& bytes) {
    try {
        const ConditionReport report = HistoryStore::decode(bytes);
        ASSERT_EQ(HistoryStore::decode(HistoryStore::encode(report)), report) << bytes;
    } catch (const DecodingError& error) {
        ASSERT_STRNE(error.what(), "") << bytes;
    }
}

TEST(ReportCodec, everyByteChangedCutOrDoubledHasAnOutcome) {
    const std::string text = smallText;
    for (std::size_t at = 0; at < text.size(); ++at) {
        for (int bit = 0; bit < 8; ++bit) {
            std::string changed = text;
            changed[at] = char(changed[at] ^ (1 << bit));
            expectOutcome(changed);
        }
        for (char letter : {'\0', '"', '\\', '{', ']', '-', '9', 'e', '\xFF'}) {
            std::string changed = text;
            changed[at] = letter;
            expectOutcome(changed);
        }
        expectOutcome(text.substr(0, at));
        expectOutcome(text.substr(0, at) + text.substr(at + 1));
        expectOutcome(text.substr(0, at + 1) + text.substr(at));
    }
}

} // namespace
} // namespace tessivo

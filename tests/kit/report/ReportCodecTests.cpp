#include "kit/report/HistoryStore.h"
#include "kit/support/Json.h"
#include "kit/support/Text.h"
#include "tests/kit/RandomSession.h"

#include <gtest/gtest.h>
#include <sstream>

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

TEST(ReportCodec, aDateLosesItsFractionOrIsRefused) {
    ConditionReport report = smallReport();
    report.created.seconds += 0.75;
    EXPECT_EQ(HistoryStore::decode(HistoryStore::encode(report)), smallReport());
    report.created.seconds = -0.25; // before 2001, too, it is the second that has begun
    EXPECT_EQ(HistoryStore::decode(HistoryStore::encode(report)).created, Date{-1});
    for (double seconds : {1e12, -1e12, 1e300, std::nan(""), HUGE_VAL, 252'455'616'000.0}) {
        report.created.seconds = seconds; // what no file can hold
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
    // The message is short and on one line.
    const std::string longCase = "\"" + std::string(39, 'x') + "é and on\"";
    EXPECT_EQ(with("\"works\"", longCase.c_str()),
              "results[0].status: unknown case \"" + std::string(39, 'x') + "…\"");
    EXPECT_EQ(with("\"works\"", "\"a\\nb\\u0000\""), "results[0].status: unknown case \"a b \"");
}

std::string times(std::size_t count, const std::string& unit) {
    std::string text;
    while (count-- > 0)
        text += unit;
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
    const std::string lists = times(900, "[") + times(900, "]"), object = "{\"a\":";
    // Several shapes stand in one text, a bar between them.
    const std::pair<std::string, std::string> rows[] = {
        {read,
         R"(-0|-0.0|1E+2|1e-400|0e1|1e400|-1e99999|123456789012345678901234567890|[1e400, {"a": -1e400}])"},
        {read, "-9223372036854775809|18446744073709551616|0." + times(5000, "1") + "|" + times(5000, "9")},
        {number, "01|-01|1.|1.e1|1e|1e+|-|0x10|1_000|1e4.5|--1|1-1|-Infinity"},
        {broken, "+1|.5|NaN|Infinity|1 000|１|[1e400 01]"},
        {read, R"("\u0000"|"\ud83d\ude00"|"\uFFFF"|"\/"|"1e400")"},
        {read, "\"\x7F\"|\"\u2028\"|\"\uFEFF\""},
        {escape, R"("\ud800"|"\udc00"|"\ud800\ud800"|"\ud800x"|"\udc00\ud800"|"\u12"|"\u00G0")"},
        {escape, R"("\x41"|"\a"|"\U0041")"},
        {control, std::string("\"\n\"|\"\t\"|\"\0\"", 11)},
        {utf8,
         "\"\xFF\"|\"\xC0\xAF\"|\"\xED\xA0\x80\"|\"\xF4\x90\x80\x80\"|\"\xE2\x82\"|\"\xF0\x80\x80\x80\""},
        {read, R"([]|{}|[[],[[]]]|{"":0}|{"a":1,"a":2}|null)"},
        {read, " \t\r\n[ ] |" + lists + "|" + times(900, object) + "0" + times(900, "}")},
        {deep, times(100'000, "[") + times(100'000, "]") + "|" + times(100'000, "[") + "|" +
                   times(100'000, object)},
        {broken, R"([1,]|[,1]|[1,,2]|[1 2]|[1|]|[1}|{"a":1,}|{"a" 1}|{"a":}|{a:1}|{1:1}|{"a":1 "b":2})"},
        {broken, "'a'|True|nul|nulll|truefalse|undefined|1 // one|/* one */ 1|# 1|\\u0031||\v1|\u00A01"},
        {broken, std::string(1, '\0') + "1"},
    };
    for (const auto& [outcome, shapes] : rows) {
        std::istringstream stream(shapes);
        for (std::string shape; std::getline(stream, shape, '|');) {
            const std::string text = "{\"future\": " + shape + "," + std::string(smallText).substr(1);
            EXPECT_EQ(faultOf(text), outcome) << shape.substr(0, 60);
        }
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
        {"1e400", "not an object but a number"},
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

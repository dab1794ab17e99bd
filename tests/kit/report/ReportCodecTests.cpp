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

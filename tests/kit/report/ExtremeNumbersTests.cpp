#include "kit/Samples.h"
#include "kit/listing/Lang.h"
#include "kit/listing/ListingTemplate.h"
#include "kit/report/ComparisonText.h"
#include "kit/report/HistoryStore.h"
#include "kit/report/ReportAssembler.h"
#include "kit/report/ReportText.h"
#include "kit/rules/Rules.h"
#include "kit/support/Json.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

/// The ends of every width, their neighbours, where doubles stop counting by one, and what no width holds.
const std::vector<std::string> numbers = {"0",
                                          "-0",
                                          "1",
                                          "-1",
                                          "2",
                                          "0.5",
                                          "-0.5",
                                          "99.5",
                                          "100",
                                          "101",
                                          "127",
                                          "128",
                                          "-128",
                                          "-129",
                                          "255",
                                          "256",
                                          "999",
                                          "1000",
                                          "10000",
                                          "32767",
                                          "32768",
                                          "-32768",
                                          "65535",
                                          "65536",
                                          "1000000",
                                          "2147483647",
                                          "2147483648",
                                          "-2147483648",
                                          "-2147483649",
                                          "4294967295",
                                          "4294967296",
                                          "1000000000",
                                          "1000000000000",
                                          "9007199254740991",
                                          "9007199254740992",
                                          "9007199254740993",
                                          "-9007199254740991",
                                          "-9007199254740993",
                                          "9223372036854775807",
                                          "9223372036854775808",
                                          "-9223372036854775808",
                                          "-9223372036854775809",
                                          "18446744073709551615",
                                          "18446744073709551616",
                                          "1e15",
                                          "1e16",
                                          "1e19",
                                          "1e22",
                                          "1e100",
                                          "1e308",
                                          "-1e308",
                                          "1e309",
                                          "-1e309",
                                          "1e-5",
                                          "1e-300",
                                          "1e-320",
                                          "5e-324",
                                          "1e-400",
                                          "3.141592653589793",
                                          "0.1e1"};

/// The text with each of its numbers, one at a time, replaced by `number`.
void forEachNumber(const std::string& json, const std::string& number,
                   const std::function<void(const std::string&)>& run) {
    bool inText = false;
    for (std::size_t at = 0; at < json.size(); ++at) {
        if (json[at] == '"' && json[at - 1] != '\\') inText = !inText;
        const bool begins =
            !inText && (std::isdigit(static_cast<unsigned char>(json[at])) || json[at] == '-');
        if (!begins) continue;
        const std::size_t end = json.find_first_not_of("0123456789.eE+-", at);
        run(json.substr(0, at) + number + json.substr(end));
        at = end - 1;
    }
}

/// No exponent, and no name of what isn't a number.
void expectPlain(const std::string& text) {
    const auto digit = [&](std::size_t at) { return at < text.size() && text[at] >= '0' && text[at] <= '9'; };
    const auto letter = [&](std::size_t at) {
        return at < text.size() && std::isalpha(static_cast<unsigned char>(text[at]));
    };
    for (std::size_t at = 1; at + 2 < text.size(); ++at) {
        const std::string_view three(text.data() + at, 3);
        const bool named =
            (three == "nan" || three == "inf" || three == "NaN") && !letter(at - 1) && !letter(at + 3);
        const bool exponent =
            (text[at] == 'e' || text[at] == 'E') && digit(at - 1) &&
            (digit(at + 1) || ((text[at + 1] == '-' || text[at + 1] == '+') && digit(at + 2)));
        EXPECT_FALSE(named || exponent) << text.substr(at - 1, 12) << " in:\n" << text;
    }
}

void expectPlain(const ConditionReport& report, const ConditionReport& other) {
    expectPlain(ReportText::text(report, "UTC"));
    expectPlain(ComparisonText::text(ReportComparison::make(other, report), "UTC"));
    for (const char* language : {"en", "es"}) {
        const Lang::Scope scope{std::string(language)};
        expectPlain(ListingTemplate::make(report, false).text);
    }
}

/// Sessions of both kinds, with everything that can be a number.
std::vector<SessionState> sessions() {
    MachineInfo desktop = Samples::machine();
    desktop.modelID = "Macmini9,1";
    return {Samples::session(), Samples::session(desktop)};
}

TEST(ExtremeNumbers, inASessionAreRefusedOrToldInPlainDigits) {
    int read = 0, refused = 0;
    for (const SessionState& session : sessions()) {
        const ConditionReport sound = ReportAssembler::make(session, Date{}, "1.0", "");
        for (const std::string& number : numbers)
            forEachNumber(session.encode(), number, [&](const std::string& json) {
                SCOPED_TRACE(number);
                try {
                    const SessionState state = SessionState::decode(json);
                    EXPECT_TRUE(SessionState::decode(state.encode()) == state);
                    expectPlain(ReportAssembler::make(state, Date{}, "1.0", ""), sound);
                    ++read;
                } catch (const DecodingError&) {
                    ++refused;
                }
            });
    }
    EXPECT_GT(read, 1'000);
    EXPECT_GT(refused, 1'000);
}

TEST(ExtremeNumbers, inAReportAreRefusedOrToldInPlainDigits) {
    int read = 0, refused = 0;
    const ConditionReport sound = ReportAssembler::make(Samples::session(), Date{}, "1.0", "");
    for (const std::string& number : numbers)
        forEachNumber(HistoryStore::encode(sound), number, [&](const std::string& json) {
            SCOPED_TRACE(number);
            try {
                const ConditionReport report = HistoryStore::decode(json);
                expectPlain(report, sound);
                EXPECT_TRUE(HistoryStore::decode(HistoryStore::encode(report)) == report);
                ++read;
            } catch (const DecodingError&) {
                ++refused;
            } catch (const std::invalid_argument&) { // a date that no report file can hold
                ++refused;
            }
        });
    EXPECT_GT(read, 10);
    EXPECT_GT(refused, 10);
}

/// Without the system's own verdict a battery is good only by two capacities that a battery can have.
TEST(ExtremeNumbers, neverMakeABatteryGood) {
    SessionState session = Samples::session();
    session.battery->condition.reset();
    ASSERT_EQ(Rules::result(TestID::battery, session).status, TestStatus::works);
    for (std::int64_t number :
         {std::int64_t(0), std::int64_t(-1), std::int64_t(-4'382), INT64_MIN, INT64_MIN + 1})
        for (auto field : {&BatteryReading::designCapacity, &BatteryReading::fullChargeCapacity}) {
            SessionState changed = session;
            (*changed.battery).*field = number;
            EXPECT_NE(Rules::result(TestID::battery, changed).status, TestStatus::works) << number;
        }
}

} // namespace
} // namespace tessivo

#include "kit/Samples.h"
#include "kit/listing/Numbers.h"
#include "kit/report/ReportAssembler.h"
#include "kit/support/Text.h"
#include "tests/kit/listing/ListingReports.h"

#include <gtest/gtest.h>
#include <random>

/// Thousands of rewordings made from templates by a seeded generator: each is either faithful, and must be
/// kept, or has one lie in it, and must be thrown away for exactly that.

using namespace tessivo;
using Case = GuardIssue::Case;
using Issues = std::vector<GuardIssue>;

namespace {

class Dice {
public:
    std::size_t below(std::size_t count) { return m_engine() % count; }
    bool flip() { return below(2) == 0; }
    template <class List>
    const auto& one(const List& list) {
        return list[below(std::size(list))];
    }

private:
    std::mt19937_64 m_engine{20'260'305};
};

struct Draft {
    std::string text;
    Issues issues; ///< what must be found; nothing if the draft is faithful
};

/// Puts `with` in the place of each number token `token`, and of nothing else.
std::string withNumber(std::string text, const std::string& token, const std::string& with) {
    const auto isDigit = [&](std::size_t at) {
        return at < text.size() && text[at] >= '0' && text[at] <= '9';
    };
    const auto joins = [&](std::size_t at) {
        return at < text.size() && (text[at] == '.' || text[at] == ',');
    };
    for (std::size_t at = 0; (at = text.find(token, at)) != std::string::npos;) {
        const std::size_t end = at + token.size();
        const bool inside = isDigit(at - 1) || isDigit(end) || (joins(at - 1) && isDigit(at - 2)) ||
                            (joins(end) && isDigit(end + 1));
        if (!inside) text.replace(at, token.size(), with);
        at += inside ? token.size() : with.size();
    }
    return text;
}

/// The number tokens that no fact holds, so that a change of one is a lie about this number alone.
std::vector<std::string> freeNumbers(const ListingWriteUp& made) {
    const std::string facts = Text::joined(made.facts.fixed, " ");
    std::vector<std::string> free;
    for (const std::string& token : made.facts.numbers)
        if (facts.find(token) == std::string::npos) free.push_back(token);
    return free;
}

std::string freshNumber(const ListingWriteUp& made, Dice& dice) {
    for (;;) {
        std::string number = std::to_string(1 + dice.below(99'999));
        if (dice.flip()) number += (dice.flip() ? "." : ",") + std::to_string(dice.below(100));
        if (std::count(made.facts.numbers.begin(), made.facts.numbers.end(), number) == 0) return number;
    }
}

using Signs = std::vector<std::pair<const char*, std::vector<const char*>>>;
const Signs quotes = {
    {"'", {"’", "‘"}}, {"\"", {"“", "”"}}, {"“", {"\"", "”"}}, {"—", {"-", "–"}}, {"-", {"–", "—", "-"}}};
const Signs accents = {{"á", {"a\u0301"}}, {"é", {"e\u0301"}}, {"í", {"i\u0301"}},
                       {"ó", {"o\u0301"}}, {"ú", {"u\u0301"}}, {"ñ", {"n\u0303"}}};

/// Rewrites that change no fact: quotes, dashes, emphasis, line breaks, case, accents, a friendly opening.
std::string reworded(std::string text, Dice& dice) {
    if (dice.flip()) text = (dice.flip() ? "Hello, this is my Mac. " : "Hola, vendo mi Mac.\n\n") + text;
    for (const Signs& signs : {quotes, accents})
        if (dice.flip())
            for (const auto& [sign, others] : signs)
                text = Text::replaced(text, sign, dice.one(others));
    if (dice.below(4) == 0) text = dice.flip() ? Text::uppercased(text) : Text::lowercased(text);
    static const char* const blanks[] = {" ", "\n", "\n\n", "\r\n", "  ", "\t", "\u00a0", "\u2028"};
    std::string result;
    for (const char letter : text) {
        const std::string mark = dice.flip() ? "**" : "__";
        const auto change = letter == '\n' || letter == ' ' ? dice.below(24) : 24;
        if (change == 0) result += mark;
        result += change < 6 ? dice.one(blanks) : std::string(1, letter);
        if (change == 1) result += mark;
    }
    return result;
}

/// One a line; those left out are in a template already, bring a number along or hold another claim.
const auto claims = Text::lines(
    "like new\nbrand new\nmint\nflawless\nperfect\nperfectly\npristine\ngreat condition\ncertified\n"
    "verified\nguarantee\nguaranteed\nwarranty\napplecare\nrefurbished\nfully functional\n"
    "everything works\nall tests passed\npassed all\nno scratches\nexcellent\ngood condition\n"
    "good shape\ngreat shape\nnuevo\nperfecto\nperfecta\nimpecable\ncertificado\nverificado\ngarantía\n"
    "garantizado\nreacondicionado\ntodo funciona\nsin rayones\nexcelente\nbuen estado\npasó todas");

const char* const bounds[] = {
    " ", "\n",     "\r\n", ".", ",", ";", "!", "?", "¡", "¿", "(",   ")",  "\"",
    "“", "”",      "'",    "’", "-", "–", "—", "/", "*", "_", "** ", "👍", "👨‍👩‍👧‍👦",
    "€", "\u00a0", "…",    "·"};
const char* const letters[] = {"x", "S", "é", "e\u0301", "ñ", "ж", "字", "½", "²", "ß"};

Draft withClaim(const ListingWriteUp& made, Dice& dice) {
    const std::string& claim = dice.one(claims);
    const std::string said = dice.flip() ? Text::uppercased(claim) : claim;
    Draft draft{made.text + " It is" + dice.one(bounds) + said + dice.one(bounds) + "so I say.", {}};
    if (dice.below(3) == 0) draft.text = said + dice.one(bounds) + made.text;
    if (dice.below(3) == 0) draft.text = made.text + dice.one(bounds) + said;
    draft.issues = {{Case::addedClaim, claim}};
    return draft;
}

/// A claim that a letter or a number touches is another word, and no claim.
Draft withTouchedClaim(const ListingWriteUp& made, Dice& dice) {
    const bool before = dice.flip();
    return {made.text + " A word: " + (before ? dice.one(letters) : "") + dice.one(claims) +
                (before && dice.flip() ? "" : dice.one(letters)) + " here",
            {}};
}

Draft withChangedNumber(const ListingWriteUp& made, Dice& dice) {
    const std::string token = dice.one(freeNumbers(made));
    std::string changed = freshNumber(made, dice);
    if (dice.flip()) changed = token + (dice.flip() ? ".0" : ",5"); // no rounding either
    return {withNumber(made.text, token, changed),
            {{Case::addedNumber, changed}, {Case::missingNumber, token}}};
}

Draft withDroppedNumber(const ListingWriteUp& made, Dice& dice) {
    const std::string token = dice.one(freeNumbers(made));
    return {withNumber(made.text, token, "some"), {{Case::missingNumber, token}}};
}

Draft withAddedNumber(const ListingWriteUp& made, Dice& dice) {
    const std::string number = freshNumber(made, dice);
    const char* const places[] = {"It has ", "Only $", "x", "\n- ", "("};
    const char* const ends[] = {"", "%", " GB", "!", ")", "x"};
    return {made.text + " " + dice.one(places) + number + dice.one(ends), {{Case::addedNumber, number}}};
}

/// Cuts one fact without numbers, wherever it stands: whole, or by a letter.
Draft withCutFact(const ListingWriteUp& made, Dice& dice) {
    std::vector<std::string> facts;
    for (const std::string& fact : made.facts.fixed)
        if (Numbers::find(fact).empty()) facts.push_back(fact);
    if (facts.empty()) return withDroppedNumber(made, dice);
    const std::string fact = dice.one(facts);
    return {Text::replaced(made.text, fact, dice.flip() ? "something" : fact.substr(1)),
            {{Case::missingFact, fact}}};
}

Draft unchanged(const ListingWriteUp& made, Dice&) {
    return {made.text, {}};
}

using Maker = Draft (*)(const ListingWriteUp&, Dice&);
const Maker faithful[] = {unchanged, withTouchedClaim};
const Maker unfaithful[] = {withClaim, withChangedNumber, withDroppedNumber, withAddedNumber, withCutFact};

std::vector<ListingWriteUp> templates() {
    const Date created = *Date::fromISO8601("2026-03-05T23:30:00Z");
    const auto sample = ReportAssembler::make(Samples::session(), created, "1.0", Samples::notes());
    std::vector<ListingWriteUp> made;
    for (const ConditionReport& report : {sample, ListingReports::mixed(), ListingReports::clean()})
        for (const char* language : {"en", "es"})
            for (const bool serial : {false, true})
                made.push_back(ListingReports::writeUp(report, language, serial));
    return made;
}

} // namespace

TEST(Rewordings, ofFourThousandTheFaithfulAreKeptAndTheOthersDiscardedForTheirLie) {
    const std::vector<ListingWriteUp> originals = templates();
    Dice dice;
    for (int round = 0; round < 4000; ++round) {
        const ListingWriteUp& made = dice.one(originals);
        const Maker maker = round % 2 == 0 ? dice.one(faithful) : dice.one(unfaithful);
        Draft draft = maker(made, dice);
        draft.text = reworded(draft.text, dice);
        ASSERT_EQ(WordingGuard::check(draft.text, made), draft.issues)
            << "round " << round << ", " << made.language << ":\n"
            << draft.text;
    }
}

#include "kit/Samples.h"
#include "kit/listing/Strings.h"
#include "kit/listing/WordingGuard.h"
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
    const auto belongs = [&](std::size_t at) {
        return at < text.size() && (std::isdigit(std::uint8_t(text[at])) != 0);
    };
    const auto joins = [&](std::size_t at) {
        return at < text.size() && (text[at] == '.' || text[at] == ',');
    };
    for (std::size_t at = 0; (at = text.find(token, at)) != std::string::npos;) {
        const std::size_t end = at + token.size();
        const bool inside = belongs(at - 1) || belongs(end) || (joins(at - 1) && belongs(at - 2)) ||
                            (joins(end) && belongs(end + 1));
        if (!inside) text.replace(at, token.size(), with);
        at += inside ? token.size() : with.size();
    }
    return text;
}

/// The number tokens that no fact holds, so that a change of one is a lie about this number alone.
std::vector<std::string> freeNumbers(const ListingWriteUp& made) {
    std::vector<std::string> free;
    for (const std::string& token : made.facts.numbers) {
        const auto holds = [&](const std::string& fact) { return fact.find(token) != std::string::npos; };
        if (std::none_of(made.facts.fixed.begin(), made.facts.fixed.end(), holds)) free.push_back(token);
    }
    return free;
}

std::string freshNumber(const ListingWriteUp& made, Dice& dice) {
    for (;;) {
        std::string number = std::to_string(1 + dice.below(99'999));
        if (dice.flip()) number += (dice.flip() ? "." : ",") + std::to_string(dice.below(100));
        if (std::count(made.facts.numbers.begin(), made.facts.numbers.end(), number) == 0) return number;
    }
}

/// Rewrites that change no fact: quotes, dashes, emphasis, line breaks, case, accents, a friendly opening.
std::string reworded(std::string text, Dice& dice) {
    if (dice.flip()) text = (dice.flip() ? "Hello, this is my Mac. " : "Hola, vendo mi Mac.\n\n") + text;
    if (dice.flip()) {
        static const std::pair<const char*, std::vector<std::string>> signs[] = {{"'", {"’", "‘"}},
                                                                                 {"\"", {"“", "”"}},
                                                                                 {"“", {"\"", "”"}},
                                                                                 {"—", {"-", "–"}},
                                                                                 {"-", {"–", "—", "-"}}};
        for (const auto& [sign, others] : signs)
            text = Text::replaced(text, sign, dice.one(others));
    }
    if (dice.flip()) {
        static const std::pair<const char*, const char*> accents[] = {{"á", "a\u0301"}, {"é", "e\u0301"},
                                                                      {"í", "i\u0301"}, {"ó", "o\u0301"},
                                                                      {"ú", "u\u0301"}, {"ñ", "n\u0303"}};
        for (const auto& [whole, parts] : accents)
            text = Text::replaced(text, whole, parts);
    }
    if (dice.below(4) == 0) text = dice.flip() ? Text::uppercased(text) : Text::lowercased(text);
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char letter = text[at];
        if (letter == '\n' || letter == ' ') {
            static const char* const blanks[] = {" ", "\n", "\n\n", "\r\n", "  ", "\t", "\u00a0", "\u2028"};
            const char* mark = dice.flip() ? "**" : "__";
            const auto change = dice.below(24);
            if (change == 0) result += mark;
            result += change < 6 ? dice.one(blanks) : std::string(1, letter);
            if (change == 1) result += mark;
        } else {
            result += letter;
        }
    }
    return result;
}

struct Claim {
    const char* text;
    std::vector<const char*> found; ///< with the claims inside it, in the guard's order
};

const Claim claims[] = {{"like new", {"like new"}},
                        {"brand new", {"brand new"}},
                        {"mint", {"mint"}},
                        {"flawless", {"flawless"}},
                        {"perfect", {"perfect"}},
                        {"perfectly", {"perfectly"}},
                        {"pristine", {"pristine"}},
                        {"excellent condition", {"excellent condition", "excellent"}},
                        {"great condition", {"great condition"}},
                        {"certified", {"certified"}},
                        {"verified", {"verified"}},
                        {"guarantee", {"guarantee"}},
                        {"guaranteed", {"guaranteed"}},
                        {"warranty", {"warranty"}},
                        {"applecare", {"applecare"}},
                        {"refurbished", {"refurbished"}},
                        {"fully functional", {"fully functional"}},
                        {"everything works", {"everything works"}},
                        {"all tests passed", {"all tests passed"}},
                        {"passed all", {"passed all"}},
                        {"no scratches", {"no scratches"}},
                        {"excellent", {"excellent"}},
                        {"good condition", {"good condition"}},
                        {"good shape", {"good shape"}},
                        {"great shape", {"great shape"}},
                        {"como nuevo", {"como nuevo", "nuevo"}},
                        {"nuevo", {"nuevo"}},
                        {"perfecto", {"perfecto"}},
                        {"perfecta", {"perfecta"}},
                        {"impecable", {"impecable"}},
                        {"certificado", {"certificado"}},
                        {"verificado", {"verificado"}},
                        {"garantía", {"garantía"}},
                        {"garantizado", {"garantizado"}},
                        {"reacondicionado", {"reacondicionado"}},
                        {"todo funciona", {"todo funciona"}},
                        {"sin rayones", {"sin rayones"}},
                        {"excelente", {"excelente"}},
                        {"buen estado", {"buen estado"}},
                        {"pasó todas", {"pasó todas"}}};

const char* const bounds[] = {
    " ", "\n",     "\r\n", ".", ",", ";", "!", "?", "¡", "¿", "(",   ")", "\"",
    "“", "”",      "'",    "’", "-", "–", "—", "/", "*", "_", "** ", "👍", "👨‍👩‍👧‍👦",
    "€", "\u00a0", "…",    "·"};
const char* const letters[] = {"x", "S", "é", "e\u0301", "ñ", "ж", "字", "½", "²", "ª"};

Draft withClaim(const ListingWriteUp& made, Dice& dice) {
    const Claim& claim = dice.one(claims);
    const std::string said = dice.flip() ? Text::uppercased(claim.text) : claim.text;
    Draft draft;
    for (const char* found : claim.found)
        draft.issues.push_back({Case::addedClaim, found});
    switch (dice.below(3)) {
    case 0:
        draft.text = said + dice.one(bounds) + made.text;
        break;
    case 1:
        draft.text = made.text + dice.one(bounds) + said;
        break;
    default:
        draft.text = made.text + " It is" + dice.one(bounds) + said + dice.one(bounds) + "so I say.";
    }
    return draft;
}

/// A claim that a letter or a number touches is another word, and no claim.
Draft withTouchedClaim(const ListingWriteUp& made, Dice& dice) {
    const Claim* claim = &dice.one(claims);
    while (claim->found.size() > 1)
        claim = &dice.one(claims);
    const bool before = dice.flip();
    return {made.text + " A word: " + (before ? dice.one(letters) : "") + claim->text +
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
    const std::string cut = dice.flip() ? "something" : fact.substr(1);
    return {Text::replaced(made.text, fact, cut), {{Case::missingFact, fact}}};
}

/// Cuts a fact that holds numbers of its own.
Draft withCutVersion(const ListingWriteUp& made, Dice&) {
    return {Text::replaced(made.text, "macOS 26.1 (25B78)", "the newest system"),
            {{Case::missingFact, "macOS 26.1 (25B78)"},
             {Case::missingNumber, "25"},
             {Case::missingNumber, "26.1"},
             {Case::missingNumber, "78"}}};
}

Draft withDenial(const ListingWriteUp& made, Dice& dice) {
    const char* const denials[] = {"no issues", "no problems", "sin problemas"};
    const std::string said = dice.one(denials);
    return {made.text + dice.one(bounds) + said + dice.one(bounds),
            made.facts.problems > 0 ? Issues{{Case::addedClaim, said}} : Issues{}};
}

Draft withPrompt(const ListingWriteUp& made, Dice& dice) {
    const char* const phrases[] = {"word for word", "palabra por palabra", "these phrases must appear"};
    const std::string said = dice.one(phrases);
    return {made.text + " x" + said + (dice.flip() ? "x" : ""), {{Case::addedClaim, said}}};
}

Draft withoutWords(const ListingWriteUp&, Dice& dice) {
    std::string text;
    for (auto count = dice.below(9); count > 0; --count)
        text += dice.flip() ? "\n" : "**";
    return {text, {{Case::empty, ""}}};
}

Draft withPadding(const ListingWriteUp& made, Dice& dice) {
    const char* const units[] = {"z", "é", "e\u0301", "👨‍👩‍👧‍👦", "\n", "\r\n"};
    const std::string unit = dice.one(units);
    Draft draft{made.text + " ", {{Case::tooLong, ""}}};
    for (auto count = Text::characterCount(made.text) + 200; count > 0; --count)
        draft.text += unit;
    return draft;
}

using Maker = Draft (*)(const ListingWriteUp&, Dice&);
const Maker faithful[] = {[](const ListingWriteUp& made, Dice&) {
                              return Draft{made.text, {}};
                          },
                          withTouchedClaim};
const Maker unfaithful[] = {withClaim,    withChangedNumber, withDroppedNumber, withAddedNumber,
                            withCutFact,  withCutVersion,    withDenial,        withPrompt,
                            withoutWords, withPadding};

std::vector<ListingWriteUp> templates() {
    const Date created = *Date::fromISO8601("2026-03-05T23:30:00Z");
    ConditionReport sample = ReportAssembler::make(Samples::session(), created, "1.0", Samples::notes());
    sample.machine.osVersion = ListingReports::machine().osVersion;
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
    int kept = 0, discarded = 0;
    for (int round = 0; round < 4000; ++round) {
        const ListingWriteUp& made = dice.one(originals);
        const Maker maker = round % 2 == 0 ? dice.one(faithful) : dice.one(unfaithful);
        Draft draft = maker(made, dice);
        if (maker != withPadding && maker != withoutWords) draft.text = reworded(draft.text, dice);
        const Issues found = WordingGuard::check(draft.text, made);
        ASSERT_EQ(found, draft.issues) << "round " << round << ", " << made.language << ":\n" << draft.text;
        (found.empty() ? kept : discarded) += 1;
    }
    EXPECT_GT(kept, 1900);
    EXPECT_GT(discarded, 1500);
}

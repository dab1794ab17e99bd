#include "kit/listing/WordingGuard.h"

#include "kit/listing/CharacterText.h"
#include "kit/listing/Numbers.h"
#include "kit/listing/Strings.h"
#include "kit/support/Text.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace tessivo {

namespace {

using Case = GuardIssue::Case;

/// What a model says that repeats its own instructions.
constexpr const char* promptPhrases[] = {"word for word", "palabra por palabra", "these phrases must appear"};

constexpr const char* bannedClaims[] = {
    "like new",
    "brand new",
    "mint",
    "flawless",
    "perfect",
    "perfectly",
    "pristine",
    "excellent condition",
    "great condition",
    "certified",
    "verified",
    "guarantee",
    "guaranteed",
    "warranty",
    "applecare",
    "refurbished",
    "fully functional",
    "everything works",
    "all tests passed",
    "passed all",
    "no scratches",
    "100%",
    "excellent",
    "good condition",
    "good shape",
    "great shape",
    "works great",
    "como nuevo",
    "nuevo",
    "perfecto",
    "perfecta",
    "impecable",
    "certificado",
    "verificado",
    "garantía",
    "garantizado",
    "reacondicionado",
    "todo funciona",
    "sin rayones",
    "excelente",
    "buen estado",
    "pasó todas",
};
static_assert(std::size(bannedClaims) == 42);

/// Claims only where the report has a problem.
constexpr const char* problemDenials[] = {"no issues", "no problems", "sin problemas"};

/// Both are sorted; what stands in `these` alone.
std::vector<std::string> without(const std::vector<std::string>& these,
                                 const std::vector<std::string>& those) {
    std::vector<std::string> rest;
    std::set_difference(these.begin(), these.end(), those.begin(), those.end(), std::back_inserter(rest));
    return rest;
}

/// A normalized text, and the same as it is read where that differs: nobody sees that a word is broken by
/// something without width or set in letters of another make.
struct Wording {
    explicit Wording(const std::string& norm) : exact(norm) {
        const std::string plain = CharacterText::inPlainLetters(norm);
        if (plain != norm) asRead.emplace(WordingGuard::normalized(plain));
    }

    CharacterText exact;
    std::optional<CharacterText> asRead;
};

/// Whether a rewording says what its original doesn't, by the letter or as it is read.
template <class Says>
bool adds(const Wording& reworded, const Wording& original, const char* phrase, Says says) {
    if ((reworded.exact.*says)(phrase)) return !(original.exact.*says)(phrase);
    if (!reworded.asRead || !((*reworded.asRead).*says)(phrase)) return false;
    return !(original.exact.*says)(phrase) && !(original.asRead && ((*original.asRead).*says)(phrase));
}

void addNumbers(std::vector<GuardIssue>& issues, const std::string& text, const WriteUpFacts& facts) {
    const std::vector<std::string> got = Numbers::find(text);
    std::vector<std::string> allowed = facts.numbers;
    std::sort(allowed.begin(), allowed.end());
    allowed.erase(std::unique(allowed.begin(), allowed.end()), allowed.end());
    for (std::string& token : without(got, allowed))
        issues.push_back({Case::addedNumber, std::move(token)});
    for (std::string& token : without(allowed, got))
        issues.push_back({Case::missingNumber, std::move(token)});
}

} // namespace

std::string GuardIssue::message() const {
    using Strings::tr;
    switch (kind) {
    case Case::missingFact:
        return tr("It left out or changed “%@”.", {payload});
    case Case::addedNumber:
        return tr("It added the number %@, which isn't in the report.", {payload});
    case Case::missingNumber:
        return tr("It dropped the number %@.", {payload});
    case Case::addedClaim:
        return tr("It said “%@”, which the report doesn't.", {payload});
    case Case::empty:
        return tr("It came back empty.");
    case Case::tooLong:
        return tr("It came back much longer than the report.");
    }
    return {};
}

std::string WordingGuard::normalized(const std::string& text) {
    static constexpr std::pair<const char*, const char*> replacements[] = {
        {"’", "'"}, {"‘", "'"}, {"“", "\""}, {"”", "\""}, {"–", "-"}, {"—", "-"}, {"**", ""}, {"__", ""}};
    std::string form = Text::lowercased(text);
    for (const auto& [what, with] : replacements)
        form = Text::replaced(form, what, with);
    return Text::collapsed(form);
}

std::vector<GuardIssue> WordingGuard::check(const std::string& text, const ListingWriteUp& writeUp) {
    const std::string norm = normalized(text);
    if (norm.empty()) return {{Case::empty, {}}};

    std::vector<GuardIssue> issues;
    const std::size_t longest = 2 * Text::characterCount(writeUp.text) + 200;
    if (text.size() > longest && Text::characterCount(text) > longest) // no character is less than a byte
        issues.push_back({Case::tooLong, {}});

    const Wording reworded(norm), original(normalized(writeUp.text));
    for (const std::string& fact : writeUp.facts.fixed)
        if (!reworded.exact.keeps(normalized(fact))) issues.push_back({Case::missingFact, fact});

    addNumbers(issues, text, writeUp.facts);

    for (const char* phrase : promptPhrases)
        if (adds(reworded, original, phrase, &CharacterText::says))
            issues.push_back({Case::addedClaim, phrase});
    const auto checkClaim = [&](const char* claim) {
        if (adds(reworded, original, claim, &CharacterText::saysWord))
            issues.push_back({Case::addedClaim, claim});
    };
    for (const char* claim : bannedClaims)
        checkClaim(claim);
    if (writeUp.facts.problems >= 1) {
        for (const char* denial : problemDenials)
            checkClaim(denial);
    }
    return issues;
}

} // namespace tessivo

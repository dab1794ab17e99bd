#include "kit/listing/WordingPolish.h"
#include "tests/kit/listing/ListingReports.h"

#include <gtest/gtest.h>

using namespace tessivo;
using ListingReports::writeUp;
using Case = GuardIssue::Case;

namespace {

/// Answers as it is told to and keeps what it was asked.
class ScriptedModel final : public WordingModel {
public:
    std::function<std::string(const std::string& text)> answer;
    std::string instructions, asked;

    std::string rewrite(const std::string& told, const std::string& text) override {
        instructions = told;
        asked = text;
        return answer(text);
    }
};

PolishResult polished(const ListingWriteUp& made, std::function<std::string(const std::string&)> answer) {
    ScriptedModel model;
    model.answer = std::move(answer);
    return WordingPolish::polish(made, model);
}

} // namespace

TEST(WordingPolish, tellsTheModelWhatItMustKeep) {
    ListingWriteUp made;
    made.facts.fixed = {"16 GB", "The \"N\" key"};
    made.text = "Text";
    made.language = "es";
    const std::string expected =
        "You rewrite a used Mac's listing description so it reads like a friendly, honest note from the "
        "seller. "
        "Open with one short sentence, then keep the problems first, then what was tested and works, what "
        "wasn't tested, the seller's notes and the specs. You may change the headings and join lines into "
        "sentences. Keep every number exactly as written, including the test date. These phrases must appear "
        "word for word: \"16 GB\"; \"The \"N\" key\". Do not add anything that isn't in the description: no "
        "condition grades, no \"like new\", no warranty, no claims that something works unless the "
        "description says so, no prices, no contact details. Answer with the description only, as plain text "
        "with no Markdown headings, in Spanish.";
    EXPECT_EQ(WordingPolish::instructions(made), expected);
    made.language = "en";
    EXPECT_TRUE(WordingPolish::instructions(made).ends_with(" headings, in English."));

    ScriptedModel model;
    model.answer = [](const std::string&) { return ""; };
    WordingPolish::polish(made, model);
    EXPECT_EQ(model.instructions, WordingPolish::instructions(made));
    EXPECT_EQ(model.asked, "Text");
}

TEST(WordingPolish, keepsACleanAnswerTrimmed) {
    const ListingWriteUp made = writeUp(ListingReports::mixed());
    EXPECT_EQ(polished(made, [](const std::string& text) { return " \r\n\u2028" + text + "\n\n"; }),
              PolishResult{PolishResult::Polished{made.text}});
}

TEST(WordingPolish, throwsAwayWhatTheGuardFinds) {
    const ListingWriteUp made = writeUp(ListingReports::clean());
    EXPECT_EQ(
        polished(made, [](const std::string& text) { return text + " Mint, 3 owners."; }),
        (PolishResult{PolishResult::Discarded{{{Case::addedNumber, "3"}, {Case::addedClaim, "mint"}}}}));
    EXPECT_EQ(polished(made, [](const std::string&) { return " \n\t"; }),
              (PolishResult{PolishResult::Discarded{{{Case::empty, ""}}}}));
    // The length that counts is that of the trimmed answer.
    EXPECT_EQ(polished(made, [](const std::string& text) { return text + std::string(9000, '\n'); }),
              PolishResult{PolishResult::Polished{made.text}});
}

TEST(WordingPolish, aModelThatThrowsLeavesItsOwnWords) {
    const ListingWriteUp made = writeUp(ListingReports::clean());
    EXPECT_EQ(
        polished(made, [](const std::string&) -> std::string { throw std::runtime_error("Too busy."); }),
        PolishResult{PolishResult::Failed{"Too busy."}});
    const PolishResult odd = polished(made, [](const std::string&) -> std::string { throw 7; });
    ASSERT_TRUE(std::holds_alternative<PolishResult::Failed>(odd.outcome));
    EXPECT_FALSE(std::get<PolishResult::Failed>(odd.outcome).description.empty());
}

TEST(WordingAvailability, saysWhyThereIsNoRewording) {
    const auto words = [](const char* language, WordingAvailability state) {
        return Lang::with(language, [&] { return availabilityMessage(state).value_or("none"); });
    };
    const std::tuple<WordingAvailability, const char*, const char*> rows[] = {
        {WordingAvailability::available, "none", "none"},
        {WordingAvailability::unsupported, "Polish Wording uses Apple", "Pulir la redacción utiliza Apple"},
        {WordingAvailability::turnedOff, "Apple Intelligence is off.",
         "Apple Intelligence está desactivado."},
        {WordingAvailability::notReady, "Apple's on-device model isn't",
         "El modelo de Apple en este Mac aún"}};
    for (const auto& [state, english, spanish] : rows) {
        EXPECT_TRUE(words("en", state).starts_with(english)) << words("en", state);
        EXPECT_TRUE(words("es", state).starts_with(spanish)) << words("es", state);
    }
}

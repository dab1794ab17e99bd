#include "kit/listing/WordingPolish.h"

#include "kit/listing/Strings.h"
#include "kit/support/Text.h"

#include <exception>

namespace tessivo {

std::string WordingPolish::instructions(const ListingWriteUp& writeUp) {
    std::vector<std::string> quoted;
    for (const std::string& fact : writeUp.facts.fixed)
        quoted.push_back('"' + fact + '"');
    return "You rewrite a used Mac's listing description so it reads like a friendly, honest note from the "
           "seller. Open with one short sentence, then keep the problems first, then what was tested and "
           "works, what wasn't tested, the seller's notes and the specs. You may change the headings and "
           "join lines into sentences. Keep every number exactly as written, including the test date. These "
           "phrases must appear word for word: " +
           Text::joined(quoted, "; ") +
           ". Do not add anything that isn't in the description: no condition grades, no \"like new\", no "
           "warranty, no claims that something works unless the description says so, no prices, no contact "
           "details. Answer with the description only, as plain text with no Markdown headings, in " +
           (writeUp.language == "es" ? "Spanish" : "English") + ".";
}

PolishResult WordingPolish::polish(const ListingWriteUp& writeUp, WordingModel& model) {
    // The check stands inside: what can't be checked, for want of memory, is never polished.
    try {
        std::string answer = Text::trimmed(model.rewrite(instructions(writeUp), writeUp.text));
        auto issues = WordingGuard::check(answer, writeUp);
        if (!issues.empty()) return {PolishResult::Discarded{std::move(issues)}};
        return {PolishResult::Polished{std::move(answer)}};
    } catch (const std::exception& error) {
        return {PolishResult::Failed{error.what()}};
    } catch (...) {
        return {PolishResult::Failed{"The wording model failed."}};
    }
}

std::optional<std::string> availabilityMessage(WordingAvailability availability) {
    using Strings::tr;
    switch (availability) {
    case WordingAvailability::available:
        return std::nullopt;
    case WordingAvailability::turnedOff:
        return tr("Apple Intelligence is off. Turn it on in System Settings to polish the wording; the "
                  "template is complete without it.");
    case WordingAvailability::notReady:
        return tr("Apple's on-device model isn't ready yet (it may still be downloading). The template is "
                  "complete without it.");
    case WordingAvailability::unsupported:
        break;
    }
    return tr("Polish Wording uses Apple Intelligence on this Mac (macOS 26 or later on Apple silicon). The "
              "template is complete without it.");
}

} // namespace tessivo

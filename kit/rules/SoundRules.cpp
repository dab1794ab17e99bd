#include "kit/rules/RuleTexts.h"
#include "kit/rules/Rules.h"
#include "kit/support/Text.h"

#include <algorithm>

namespace tessivo::Rules {

const char* const oneSpeaker = "Speaker";
const char* const leftSpeaker = "Left speaker";
const char* const rightSpeaker = "Right speaker";

namespace {

const char* heard(ManualAnswer answer) {
    switch (answer) {
    case ManualAnswer::unanswered:
        return "not played";
    case ManualAnswer::works:
        return "heard";
    case ManualAnswer::problem:
        return "no clean sound";
    case ManualAnswer::notPresent:
        return "none";
    }
    return "";
}

} // namespace

TestResult speakers(const SpeakerTest& test) {
    struct Row {
        const char* name;
        ManualAnswer answer;
    };
    const std::vector<Row> rows =
        test.channels < 2 ? std::vector<Row>{{oneSpeaker, test.both}}
                          : std::vector<Row>{{leftSpeaker, test.left}, {rightSpeaker, test.right}};

    std::vector<std::string> details;
    std::vector<std::string> faults;
    for (const Row& row : rows) {
        details.push_back(std::string(row.name) + ": " + heard(row.answer));
        if (row.answer == ManualAnswer::problem) faults.push_back(row.name);
    }
    if (test.outputName) details.push_back("Played through: " + *test.outputName);

    if (std::ranges::all_of(rows, [](const Row& row) { return row.answer == ManualAnswer::unanswered; }))
        return {TestID::speakers, TestStatus::notRun, "Not run"};
    if (!faults.empty())
        return {TestID::speakers, TestStatus::problem,
                "No clean sound: " + Text::lowercased(Text::joined(faults, ", ")), std::move(details)};
    if (std::ranges::all_of(rows, [](const Row& row) { return row.answer == ManualAnswer::works; }))
        return {TestID::speakers, TestStatus::works,
                rows.size() == 1 ? "Tone heard clearly" : "Left and right tones heard clearly",
                std::move(details)};
    return {TestID::speakers, TestStatus::unfinished, "Play the other side", std::move(details)};
}

TestResult headphones(const std::optional<HeadphoneTest>& test) {
    if (!test || (!test->detected && test->left == ManualAnswer::unanswered &&
                  test->right == ManualAnswer::unanswered))
        return {TestID::headphones, TestStatus::notRun, "Not run"};

    std::vector<std::string> details;
    if (test->detected)
        details.push_back("Wired headphones seen in the jack" +
                          (test->jackName ? " (" + *test->jackName + ")" : ""));
    else
        details.push_back("No wired headphones seen in the jack");
    details.push_back(std::string("Left ear: ") + heard(test->left));
    details.push_back(std::string("Right ear: ") + heard(test->right));

    std::vector<std::string> faults;
    if (test->left == ManualAnswer::problem) faults.push_back("left");
    if (test->right == ManualAnswer::problem) faults.push_back("right");
    if (!faults.empty())
        return {TestID::headphones, TestStatus::problem,
                "No clean sound in the headphones: " + Text::joined(faults, ", "), std::move(details)};

    if (test->left == ManualAnswer::works && test->right == ManualAnswer::works) {
        if (test->detected)
            return {TestID::headphones, TestStatus::works,
                    "Headphones detected in the jack; left and right tones heard clearly",
                    std::move(details)};
        // Tones also reach a person through Bluetooth or USB headphones: no proof of the jack.
        details.push_back("Make sure they were wired headphones in the jack, not Bluetooth or USB.");
        return {TestID::headphones, TestStatus::checkByHand,
                "Tones heard, but the Mac didn't report headphones in the jack", std::move(details)};
    }
    return {TestID::headphones, TestStatus::unfinished,
            test->detected ? "Headphones detected; play both sides" : "Plug wired headphones into the jack",
            std::move(details)};
}

} // namespace tessivo::Rules

#include "kit/rules/Rules.h"
#include "tests/kit/rules/Printed.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

using enum ManualAnswer;

TEST(SpeakerRule, needsEverySideHeard) {
    struct Row {
        SpeakerTest test; // channels, output, left, right, both
        const char* expected;
    };
    const std::vector<Row> rows = {
        {{2, "MacBook Air Speakers", unanswered, unanswered, works}, "notRun: Not run"},
        {{1, {}, works, problem, unanswered}, "notRun: Not run"},
        {{1, "Mac mini Speakers", problem, problem, works},
         "works: Tone heard clearly | Speaker: heard | Played through: Mac mini Speakers"},
        {{0, {}, unanswered, unanswered, notPresent}, "unfinished: Play the other side | Speaker: none"},
        {{1, {}, works, works, problem}, "problem: No clean sound: speaker | Speaker: no clean sound"},
        {{2, {}, works, unanswered, works},
         "unfinished: Play the other side | Left speaker: heard | Right speaker: not played"},
        {{2, {}, unanswered, works, {}},
         "unfinished: Play the other side | Left speaker: not played | Right speaker: heard"},
        {{2, {}, works, notPresent, {}},
         "unfinished: Play the other side | Left speaker: heard | Right speaker: none"},
        {{2, {}, problem, works, {}},
         "problem: No clean sound: left speaker | Left speaker: no clean sound | Right speaker: heard"},
        {{6, {}, problem, problem, {}},
         "problem: No clean sound: left speaker, right speaker | "
         "Left speaker: no clean sound | Right speaker: no clean sound"},
        {{6, "Studio", works, works, problem},
         "works: Left and right tones heard clearly | Left speaker: heard | "
         "Right speaker: heard | Played through: Studio"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(printed(Rules::speakers(row.test)), row.expected);
}

TEST(HeadphoneRule, hearingTonesIsNoProofOfTheJack) {
    struct Row {
        std::optional<HeadphoneTest> test; // detected, jack, left, right
        const char* expected;
    };
    const std::vector<Row> rows = {
        {std::nullopt, "notRun: Not run"},
        {HeadphoneTest{false, "Jack", unanswered, unanswered}, "notRun: Not run"},
        {HeadphoneTest{true, "External Headphones", unanswered, unanswered},
         "unfinished: Headphones detected; play both sides | Wired headphones seen in the jack (External "
         "Headphones) | Left ear: not played | Right ear: not played"},
        {HeadphoneTest{true, {}, works, works}, "works: Headphones detected in the jack; left and right "
                                                "tones heard clearly | Wired headphones seen in the "
                                                "jack | Left ear: heard | Right ear: heard"},
        {HeadphoneTest{true, {}, works, notPresent}, "unfinished: Headphones detected; play both sides | "
                                                     "Wired headphones seen in the jack | Left ear: heard | "
                                                     "Right ear: none"},
        {HeadphoneTest{false, "Jack", works, works}, "checkByHand: Tones heard, but the Mac didn't report "
                                                     "headphones in the jack | No wired headphones seen in "
                                                     "the jack | Left ear: heard | Right ear: heard | Make "
                                                     "sure they were wired headphones in the jack, not "
                                                     "Bluetooth or USB."},
        {HeadphoneTest{false, {}, works, unanswered}, "unfinished: Plug wired headphones into the jack | No "
                                                      "wired headphones seen in the jack | Left ear: heard "
                                                      "| Right ear: not played"},
        {HeadphoneTest{true, {}, works, problem}, "problem: No clean sound in the headphones: right | Wired "
                                                  "headphones seen in the jack | Left ear: heard | "
                                                  "Right ear: no clean sound"},
        {HeadphoneTest{false, {}, problem, problem}, "problem: No clean sound in the headphones: left, right "
                                                     "| No wired headphones seen in the jack | Left ear: "
                                                     "no clean sound | Right ear: no clean sound"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(printed(Rules::headphones(row.test)), row.expected);
}

} // namespace
} // namespace tessivo

#include "app/pages/frame/AnswerButtons.h"

#include "app/controls/Button.h"
#include "tests/app/PageTesting.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

using namespace tessivo::pagetest;

QString text(const char* words) {
    return QString::fromUtf8(words);
}

TEST(AnswerButtons, areChosenTakenBackAndChanged) {
    AnswerButtons answers(text("None seen"), text("Yes, I saw some"));
    std::vector<ManualAnswer> said;
    QObject::connect(&answers, &AnswerButtons::answered, [&](ManualAnswer answer) {
        said.push_back(answer);
        answers.setAnswer(answer);
    });
    showAt(answers, {400, 40});
    auto* none = findByName<Button>(&answers, text("None seen"));
    auto* some = findByName<Button>(&answers, text("Yes, I saw some"));
    ASSERT_TRUE(none && some);
    EXPECT_EQ(findByName<Button>(&answers, text("Not on this keyboard")), nullptr);
    const int width = none->sizeHint().width();

    EXPECT_TRUE(click(none));
    EXPECT_TRUE(isChecked(none));
    EXPECT_EQ(none->sizeHint().width(), width) << "a chosen answer must not push its neighbour";
    EXPECT_TRUE(click(some));
    EXPECT_FALSE(isChecked(none));
    EXPECT_TRUE(click(some));
    EXPECT_FALSE(isChecked(some));
    EXPECT_TRUE(doubleClick(none));
    EXPECT_EQ(answers.answer(), ManualAnswer::unanswered);
    using enum ManualAnswer;
    EXPECT_EQ(said, (std::vector{works, problem, unanswered, works, unanswered}));
}

} // namespace
} // namespace tessivo

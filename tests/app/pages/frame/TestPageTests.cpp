#include "app/pages/frame/TestPage.h"

#include "app/controls/Button.h"
#include "app/controls/Checkbox.h"
#include "app/controls/GrowingTextField.h"
#include "app/controls/Panel.h"
#include "app/controls/StatusBadge.h"
#include "app/controls/TextLabel.h"
#include "app/model/AppModel.h"
#include "kit/rules/Rules.h"
#include "platform/simulated/MachineFile.h"
#include "platform/simulated/ManualScheduler.h"
#include "platform/simulated/SimulatedControls.h"
#include "tests/app/PageTesting.h"

#include <QApplication>
#include <QTest>
#include <gtest/gtest.h>

namespace tessivo {
namespace {

using namespace pagetest;

QString text(const char* words) {
    return QString::fromUtf8(words);
}

/// Counts how often a page's parts are laid out anew.
class LayoutCounter final : public QObject {
public:
    int count = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::LayoutRequest) ++count;
        return false;
    }
};

class TestPageTest : public ::testing::Test {
protected:
    ManualScheduler clock{Date{794'000'000}};
    SimulatedPlatform platform{loadMachineFile(TESSIVO_MACHINES "/macbook-air-m2.json"), clock};
    AppModel model{platform};
    TestPage page{model, TestID::keyboard, text("Choose Start, then press every key."), new Panel};

    TestStatus badge() { return page.findChild<StatusBadge*>()->status(); }
    bool shown(const char* words) { return shows(&page, text(words)); }
};

TEST_F(TestPageTest, showsWhatTheRulesSayAsSoonAsTheSessionChanges) {
    showAt(page, {950, 700});
    EXPECT_TRUE(shown("Keyboard"));
    EXPECT_TRUE(shown("Choose Start, then press every key."));
    EXPECT_TRUE(shown(model.result(TestID::keyboard).summary.c_str()));
    EXPECT_EQ(badge(), TestStatus::notRun);
    model.change([](SessionState& state) { state.keyboard.press(0); });
    EXPECT_EQ(badge(), TestStatus::unfinished);
    EXPECT_TRUE(shown(model.result(TestID::keyboard).summary.c_str()));
    EXPECT_EQ(unnamedControls(&page), QStringList());
}

TEST_F(TestPageTest, correctsTheResultByHand) {
    showAt(page, {950, 700});
    auto* box = findByName<Checkbox>(&page, text("Not part of this sale (leave it out of the report)"));
    auto* note = findByName<GrowingTextField>(&page, text("Problem note for Keyboard"));
    ASSERT_TRUE(box && note);
    const auto ruled = [&] {
        const auto& all = model.state().overrides;
        return all.contains(TestID::keyboard) ? std::optional(all.at(TestID::keyboard)) : std::nullopt;
    };
    type(note, text("  "));
    EXPECT_EQ(ruled(), (UserOverride{false, "  "})) << "blanks are kept as written";
    type(note, text("G "));
    EXPECT_EQ(badge(), TestStatus::problem);
    EXPECT_TRUE(shown("Problem noted by the person testing"));
    EXPECT_TRUE(click(box));
    EXPECT_EQ(ruled(), (UserOverride{true, "  G "})) << "the note stays";
    EXPECT_EQ(badge(), TestStatus::notIncluded);
    EXPECT_TRUE(click(box));
    EXPECT_EQ(badge(), TestStatus::problem) << "and counts again";
    EXPECT_EQ(note->textCursor().position(), 4) << "its cursor has stayed";
    EXPECT_TRUE(click(box));
    note->selectAll();
    QTest::keyClick(note, Qt::Key_Delete);
    EXPECT_EQ(ruled(), (UserOverride{true, std::nullopt})) << "clearing the note keeps the flag";
    EXPECT_TRUE(click(box));
    EXPECT_EQ(ruled(), std::nullopt) << "with neither there is no override";

    model.change([](SessionState& state) { state.overrides[TestID::keyboard] = {true, "By another"}; });
    EXPECT_TRUE(isChecked(box));
    EXPECT_EQ(note->text(), text("By another"));
    note->selectAll();
    QTest::keyClick(note, Qt::Key_Delete);
    EXPECT_TRUE(click(box));
    EXPECT_EQ(ruled(), std::nullopt);

    const std::string broken = "a\r\nb\u2028c\u2029d\u0085e\vf\rg\fh";
    model.change([&](SessionState& state) { state.overrides[TestID::keyboard] = {false, broken}; });
    note->moveCursor(QTextCursor::End);
    EXPECT_TRUE(click(box));
    EXPECT_EQ(ruled(), (UserOverride{true, broken})) << "a note of other line breaks isn't rewritten";
    EXPECT_TRUE(click(box));
    EXPECT_EQ(ruled(), (UserOverride{false, broken}));
    EXPECT_TRUE(note->textCursor().atEnd()) << "nor set anew under the cursor";
    type(note, text("!"));
    EXPECT_EQ(ruled(), (UserOverride{false, "a\nb\nc\nd\u0085e\vf\ng\fh!"})) << "only editing does that";
}

TEST_F(TestPageTest, doesNoWorkForWhatItDoesNotShow) {
    showAt(page, {950, 700});
    LayoutCounter counter;
    for (QWidget* widget : page.findChildren<QWidget*>())
        widget->installEventFilter(&counter);
    model.change([](SessionState& state) { state.display.shown.insert("Black"); });
    settle();
    EXPECT_EQ(counter.count, 0) << "another test's answer lays nothing out";

    page.hide();
    model.change([](SessionState& state) { state.keyboard.press(0); });
    EXPECT_EQ(badge(), TestStatus::notRun) << "a hidden page waits";
    page.show();
    EXPECT_EQ(badge(), TestStatus::unfinished);
}

TEST_F(TestPageTest, standsWholeWhenNarrowLargeAndFullOfOddText) {
    const QString odd =
        text("\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D <b>\xF0\x9F\x8E\xA7</b>\x01") + QString(400, QLatin1Char('W'));
    model.change(
        [&](SessionState& state) { state.overrides[TestID::keyboard] = {false, odd.toStdString()}; });
    for (const double points : {10.0, 24.0}) {
        const DesktopLook look(points);
        for (const QSize size : {QSize(950, 752), QSize(620, 520)}) {
            showAt(page, size);
            EXPECT_EQ(clippedControls(&page), QStringList()) << points << " points at " << size.width();
        }
    }
    EXPECT_EQ(findByName<GrowingTextField>(&page, text("Problem note for Keyboard"))->text(), odd);
}

} // namespace
} // namespace tessivo

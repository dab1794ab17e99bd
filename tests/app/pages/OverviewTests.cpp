#include "app/controls/Button.h"
#include "app/controls/SegmentedPicker.h"
#include "app/controls/StatusBadge.h"
#include "app/controls/SymbolView.h"
#include "app/controls/TextLabel.h"
#include "app/controls/Tile.h"
#include "kit/Samples.h"
#include "tests/app/pages/PageFixture.h"

#include <QTest>

namespace tessivo::pagetest {

class OverviewTests : public PageFixture {
protected:
    static constexpr int patience = 5000;

    /// The lines of the identity panel as a screen reader says them.
    QStringList facts() {
        QStringList lines;
        for (const char* label : {"Serial number", "Model ID", "Chip", "Memory", "Storage", "macOS"}) {
            const QString start = QString::fromLatin1(label) + ", ";
            for (QWidget* widget : view->findChildren<QWidget*>())
                if (accessibleNameOf(widget).startsWith(start)) lines << accessibleNameOf(widget);
        }
        return lines;
    }
    QString symbol() { return view->findChild<SymbolView*>()->symbolName(); }
    QStringList tiles() {
        QStringList names;
        for (auto* tile : view->findChildren<Tile*>())
            if (tile->isVisible()) names << accessibleNameOf(tile);
        return names;
    }
    std::vector<TestStatus> badges() {
        std::vector<TestStatus> statuses;
        for (auto* badge : view->findChildren<StatusBadge*>())
            statuses.push_back(badge->status());
        return statuses;
    }
    bool finishReading() {
        const bool finished = QTest::qWaitFor([this] { return !model->reading(); }, patience);
        settle();
        return finished;
    }
};

TEST_F(OverviewTests, theMachineIsToldAsItWasRead) {
    open(Page::overview);
    EXPECT_TRUE(shown("MacBook Air (M2, 2022)"));
    EXPECT_TRUE(shown("Test it, then make a whole-machine condition report for your listing."));
    EXPECT_TRUE(
        shown("About This Mac (in the Apple menu) shows the same serial number, so a buyer can match them."));
    EXPECT_EQ(facts().join(u'\n'),
              "Serial number, FK2X91TQ7W\nModel ID, Mac14,2\nChip, Apple M2\nMemory, 16 GB\n"
              "Storage, 256 GB\nmacOS, macOS 15.3.1 (24D70)");
    EXPECT_EQ(symbol(), "laptopcomputer");
    useMachine("mac-mini-m4");
    open(Page::overview);
    EXPECT_EQ(symbol(), "macmini");
    useMachine("imac-2019-fusion");
    open(Page::overview);
    EXPECT_EQ(symbol(), "desktopcomputer");
}

TEST_F(OverviewTests, whatCouldNotBeReadIsSaid) {
    useMachine("all-readings-fail");
    open(Page::overview);
    const QStringList lines = facts();
    EXPECT_TRUE(lines.contains("Serial number, Couldn't read it")) << qPrintable(lines.join(u'\n'));
    EXPECT_TRUE(lines.contains("Storage, —"));
    EXPECT_TRUE(lines.contains("Model ID, Unknown"));
}

TEST_F(OverviewTests, readAgainReadsDeviceManagement) {
    open(Page::overview);
    EXPECT_TRUE(shown("Not read yet"));
    controls->hangEnrollmentTool();
    ASSERT_TRUE(press("Read Again"));
    EXPECT_FALSE(findByName<Button>(view.get(), "Read Again")->isEnabled());
    EXPECT_FALSE(press("Read Again"));
    controls->setEnrolled(false);
    ASSERT_TRUE(finishReading());
    EXPECT_TRUE(findByName<Button>(view.get(), "Read Again")->isEnabled());
    for (const char* line :
         {"Not enrolled in device management", "Enrolled via DEP: No", "MDM enrollment: No",
          "A Mac an organization owns can still enroll after it's erased. Ask where it came from."})
        EXPECT_TRUE(shown(line)) << line;

    controls->removeEnrollmentTool();
    ASSERT_TRUE(press("Read Again"));
    ASSERT_TRUE(finishReading());
    EXPECT_TRUE(shown("Couldn't read it here. Check by hand."));
    EXPECT_FALSE(shown("MDM enrollment: No")) << "a line that is no more is taken away";
    EXPECT_EQ(badges().front(), TestStatus::checkByHand);
}

TEST_F(OverviewTests, theActivationLockAnswerIsWrittenAtOnceAndCanBeTakenBack) {
    open(Page::overview);
    EXPECT_TRUE(shown("Apps can't read this, so check it by hand: Hold Option and choose Apple menu › System "
                      "Information. Under Hardware, Activation Lock Status should read Disabled."));
    // In the colour of text, not the secondary one.
    for (auto* label : view->findChildren<TextLabel*>())
        if (label->text().startsWith("Apps can't read this")) {
            const QImage drawn = label->grab().toImage();
            int darkest = 255;
            for (int y = 0; y < drawn.height(); ++y)
                for (int x = 0; x < drawn.width(); ++x)
                    darkest = std::min(darkest, drawn.pixelColor(x, y).lightness());
            EXPECT_LT(darkest, 60);
        }
    const char* warning =
        "The seller must turn off Find My and sign out of their Apple Account before handing it over.";
    struct Row {
        const char* choice;
        ActivationLockAnswer answer;
        TestStatus badge;
        bool warns;
    };
    const Row rows[] = {
        {"Enabled", ActivationLockAnswer::enabled, TestStatus::problem, true},
        {"Disabled", ActivationLockAnswer::disabled, TestStatus::works, false},
        {"Not checked yet", ActivationLockAnswer::unanswered, TestStatus::checkByHand, false}};
    for (const Row& row : rows) {
        ASSERT_TRUE(press(row.choice));
        EXPECT_EQ(state().activationLock, row.answer);
        EXPECT_EQ(badges().at(1), row.badge);
        EXPECT_EQ(shown(warning), row.warns) << row.choice;
        EXPECT_TRUE(isChecked(findByName<QWidget>(view.get(), row.choice)));
    }
    model->change([](SessionState& s) { s.overrides[TestID::activationLock] = {.notIncluded = true}; });
    ASSERT_TRUE(press("Enabled"));
    EXPECT_FALSE(shown(warning)) << "a test left out has no detail to show";
}

TEST_F(OverviewTests, aTileTellsItsTestAndOpensItsPage) {
    open(Page::overview);
    EXPECT_EQ(tiles().size(), 10);
    EXPECT_EQ(tiles().first(),
              "Keyboard: Not run. " + QString::fromStdString(model->result(TestID::keyboard).summary));
    model->setState(Samples::session(model->state().machine));
    settle();
    EXPECT_EQ(tiles().first(),
              "Keyboard: Works. " + QString::fromStdString(model->result(TestID::keyboard).summary));
    for (const Page page : AppModel::testPages(MacKind::laptop)) {
        ASSERT_TRUE(
            click(findNamed(view.get(),
                            QStringLiteral("%1: %2. %3")
                                .arg(title(page), label(*model->status(page)),
                                     QString::fromStdString(model->result(tests(page).front()).summary)),
                            [](QWidget* widget) { return dynamic_cast<Tile*>(widget); })))
            << title(page);
        EXPECT_EQ(model->page(), page);
    }
    useMachine("mac-mini-m4");
    open(Page::overview);
    EXPECT_EQ(tiles().size(), 11);
}

TEST_F(OverviewTests, aWriteThatChangesNothingShownPaintsNothing) {
    open(Page::overview);
    int paints = 0;
    class Counter final : public QObject {
    public:
        explicit Counter(int& count) : m_count(count) {}
        bool eventFilter(QObject*, QEvent* event) override {
            m_count += event->type() == QEvent::Paint;
            return false;
        }

    private:
        int& m_count;
    } counter(paints);
    for (QWidget* widget : view->findChildren<QWidget*>())
        widget->installEventFilter(&counter);
    model->change([](SessionState& s) { s.keyboard.layout = KeyboardLayout::ID::iso; });
    settle();
    EXPECT_EQ(paints, 0);
    model->change([](SessionState& s) { s.keyboard.press(0); });
    settle();
    EXPECT_GT(paints, 0);
}

} // namespace tessivo::pagetest

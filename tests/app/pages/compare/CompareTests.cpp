#include "app/controls/Button.h"
#include "app/controls/Picker.h"
#include "app/pages/compare/CompareSheet.h"
#include "app/pages/history/HistoryList.h"
#include "kit/Samples.h"
#include "kit/report/ReportAssembler.h"
#include "tests/app/pages/PageFixture.h"

#include <QLineEdit>
#include <QTest>

using namespace tessivo;
using namespace tessivo::pagetest;

namespace {

constexpr int patience = 5000; // milliseconds that another thread may take
constexpr double day = 86'400;

class CompareTests : public PageFixture {
protected:
    /// Every test of this Mac answered, with its own battery.
    SessionState session() {
        model->readBattery();
        SessionState session = Samples::session(model->state().machine);
        session.battery = model->state().battery;
        return session;
    }

    ConditionReport keep(const SessionState& session, double days) {
        const auto report = ReportAssembler::make(session, Date{clock.now().seconds + days * day}, "1.0", "");
        model->saveToHistory(report);
        return report;
    }
    /// The session on this Mac: the tests run again, begun a moment ago.
    void rerun(const std::function<void(SessionState&)>& edit = [](SessionState&) {}) {
        SessionState now = session();
        now.started = clock.now();
        now.microphones.front().peak = -9.0;
        edit(now);
        model->setState(now);
    }

    void openSheet(int row = 1) {
        open(Page::history);
        auto* list = view->findChild<HistoryList*>();
        list->setCurrentIndex(list->model()->index(row, 0));
        settle();
        ASSERT_TRUE(press("Compare…"));
        settle();
        ASSERT_NE(sheet(), nullptr);
    }
    /// As above, and this Mac has been read.
    void openRead() {
        openSheet();
        ASSERT_TRUE(QTest::qWaitFor([this] { return !model->reading(); }, patience));
        settle();
    }
    CompareSheet* sheet() { return view->window()->findChild<CompareSheet*>(); }
    Picker& picker(const char* name) { return *findByName<Picker>(sheet(), name); }
    QLineEdit& field() { return *findByName<QLineEdit>(sheet(), "Search the other reports"); }
    bool onSheet(const QString& words) { return shows(sheet(), words); }
    bool pressOnSheet(const char* name) { return clickOn(sheet(), QString::fromUtf8(name)); }
    void choose(Picker& picker, int index) {
        picker.setCurrentIndex(index);
        Q_EMIT picker.activated(index);
        settle();
    }
};

} // namespace

TEST_F(CompareTests, thisMacIsReadAgainAndComparedWithTheSellersReport) {
    keep(session(), -9);
    rerun();
    controls->setEnrolled(true);
    const std::size_t runs = controls->enrollmentRuns();
    openRead();
    EXPECT_EQ(controls->enrollmentRuns(), runs + 1);
    EXPECT_TRUE(onSheet("1 thing is worse than the report says."));
    EXPECT_TRUE(onSheet("Worse"));
    EXPECT_TRUE(onSheet("Device management (MDM)"));
    EXPECT_TRUE(onSheet("Works. Not enrolled in device management"));
    EXPECT_TRUE(onSheet("Problem. Enrolled in device management. An organization can control this Mac; ask "
                        "the seller to have it released."));
    EXPECT_EQ(shownTexts(sheet()).filter("this Mac now").size(), 1) << "the dates of both";
    EXPECT_TRUE(onSheet("A report file can be edited too; this compares words with words."));
    EXPECT_EQ(unnamedControls(sheet()).join("\n"), "");
    EXPECT_EQ(clippedControls(sheet()).join("\n"), "");

    EXPECT_TRUE(pressOnSheet("Copy as Text"));
    EXPECT_THAT(controls->pasteboardText().value_or(""),
                testing::AllOf(testing::StartsWith("TWO REPORTS COMPARED\n"),
                               testing::HasSubstr("1 thing is worse than the report says.\n")));
    EXPECT_TRUE(pressOnSheet("Done"));
    settle();
    EXPECT_EQ(sheet(), nullptr);
}

TEST_F(CompareTests, whileThisMacIsReadNothingIsAnswered) {
    keep(session(), -9);
    keep(session(), -8);
    rerun();
    controls->hangEnrollmentTool();
    openSheet();
    EXPECT_TRUE(onSheet("Reading battery and device management again…"));
    EXPECT_FALSE(findByName<Button>(sheet(), "Copy as Text")->isEnabled());
    choose(picker("Compared with"), 1);
    EXPECT_TRUE(findByName<Button>(sheet(), "Copy as Text")->isEnabled()) << "files need no reading";
    choose(picker("Compared with"), 0);
    EXPECT_TRUE(onSheet("Reading battery and device management again…"));
    EXPECT_EQ(unnamedControls(sheet()).join("\n"), "");
    QTest::keyClick(sheet(), Qt::Key_Escape);
    settle();
    EXPECT_EQ(sheet(), nullptr);
}

TEST_F(CompareTests, theUnchangedTestsUnfold) {
    keep(session(), -9);
    rerun();
    openRead();
    EXPECT_TRUE(onSheet("No difference in the words of the two reports."));
    EXPECT_TRUE(onSheet("Activation Lock"));
    EXPECT_FALSE(onSheet("Trackpad"));
    const QStringList fold = shownTexts(sheet()).filter("tests unchanged");
    ASSERT_EQ(fold.size(), 1);
    EXPECT_TRUE(clickOn(sheet(), fold.front()));
    settle();
    EXPECT_TRUE(onSheet("Trackpad"));
    EXPECT_TRUE(clickOn(sheet(), fold.front()));
    settle();
    EXPECT_FALSE(onSheet("Trackpad"));
}

TEST_F(CompareTests, theSellersOwnSessionConfirmsNothing) {
    SessionState sellers = session();
    sellers.started = Date{clock.now().seconds - 10 * day};
    keep(sellers, -9);
    sellers.microphones.front().peak = -9.0;
    model->setState(sellers);
    openRead();
    const char* nothingTested = "Nothing here was tested after that report. Choose Start Over, then run the "
                                "quick tests.";
    EXPECT_TRUE(onSheet(nothingTested));
    const QStringList begun = shownTexts(sheet()).filter("this Mac now, tests begun " +
                                                         QString::fromStdString(sellers.started.shortText()));
    EXPECT_EQ(begun.size(), 1);

    // What was read of the old session isn't taken for one that began behind the sheet.
    rerun();
    choose(picker("Compared with"), 0);
    EXPECT_TRUE(onSheet(nothingTested));
}

TEST_F(CompareTests, otherReportsOfThisMacAreOfferedTheNewestFirst) {
    SessionState dead = session();
    dead.overrides[TestID::keyboard].problem = "The F key is dead.";
    for (int i = 1; i <= 60; ++i)
        keep(i == 5 ? dead : session(), -i);
    openRead();
    Picker& other = picker("Compared with");
    EXPECT_EQ(other.count(), 51) << "this Mac now, and at most 50 others";
    EXPECT_EQ(other.itemText(0), "This Mac now");
    EXPECT_EQ(picker("Report").count(), 51);
    choose(other, 4);
    EXPECT_TRUE(onSheet("Better")) << "the older one, in which the key was dead, is before";
    choose(picker("Report"), 4);
    EXPECT_EQ(other.currentText(), "This Mac now");
    choose(other, 1);
    EXPECT_TRUE(onSheet("Better"));
}

TEST_F(CompareTests, theRestIsSearched) {
    keep(session(), -1);
    MachineInfo mini = Samples::machine();
    mini.modelID = "Macmini9,1";
    for (int i = 2; i <= 4; ++i) {
        mini.serial = "MINI" + std::to_string(i);
        keep(Samples::session(mini), -i);
    }
    openRead();
    QTest::keyClicks(&field(), "mini mini3");
    settle();
    EXPECT_TRUE(onSheet("1 found"));
    EXPECT_TRUE(onSheet("This is another Mac."));
    QTest::keyClick(&field(), Qt::Key_Return);
    ASSERT_NE(sheet(), nullptr) << "Return ends the search alone";
    QTest::keyClicks(&field(), " nothing");
    settle();
    EXPECT_TRUE(onSheet("0 found"));
    EXPECT_TRUE(onSheet("This is another Mac.")) << "what is shown stays";
    field().selectAll();
    QTest::keyClick(&field(), Qt::Key_Backspace);
    settle();
    EXPECT_EQ(picker("Compared with").currentText(), "This Mac now");
    EXPECT_FALSE(onSheet("0 found"));
}

TEST_F(CompareTests, emptyReportsAreToldCalmly) {
    ConditionReport empty;
    empty.id = Uuid::random();
    empty.machine.modelID = "Mac99,1";
    empty.created = clock.now();
    model->saveToHistory(empty);
    empty.id = Uuid::random();
    empty.created.seconds -= day;
    model->saveToHistory(empty);
    openRead();
    choose(picker("Compared with"), 1);
    EXPECT_TRUE(onSheet("No difference in the words of the two reports."));
    EXPECT_FALSE(onSheet("Which Mac"));
    EXPECT_TRUE(shownTexts(sheet()).filter("unchanged").isEmpty());
    view->resize(820, 548);
    settle();
    EXPECT_EQ(clippedControls(sheet()).join("\n"), "");
}

TEST_F(CompareTests, aTextOfAMillionLettersIsCutOnTheSheetAndWholeInTheCopy) {
    ConditionReport report = keep(session(), -2);
    ConditionReport other = report;
    other.id = Uuid::random();
    other.created.seconds += day;
    const std::string huge(1'000'000, 'x');
    TestResult& keyboard = other.results[3];
    keyboard.summary = huge;
    keyboard.note = huge;
    other.results[5].summary = huge;
    for (int i = 0; i < 100; ++i)
        other.results.push_back({TestID::speakers, TestStatus::works, std::to_string(i), {}, {}});
    model->saveToHistory(other);
    openRead();
    const double before = processorMilliseconds();
    choose(picker("Compared with"), 1);
    EXPECT_LT(processorMilliseconds() - before, 1500);
    for (const QString& text : shownTexts(sheet()))
        EXPECT_LT(text.size(), 6000);
    EXPECT_TRUE(pressOnSheet("Copy as Text"));
    EXPECT_GT(controls->pasteboardText().value_or("").size(), 3'000'000u);
}

TEST_F(CompareTests, byKeyboardAlone) {
    keep(session(), -9);
    rerun();
    openRead();
    QStringList stops;
    for (int i = 0; i < 6; ++i) { // once around
        QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : sheet(), Qt::Key_Tab);
        if (QWidget* focused = QApplication::focusWidget()) stops << accessibleNameOf(focused);
    }
    EXPECT_EQ(stops.join("; "), "Report; Compared with; Differences; 8 tests unchanged; Copy as Text; Done");
    QTest::keyClick(sheet(), Qt::Key_Escape);
    settle();
    EXPECT_EQ(sheet(), nullptr);
}

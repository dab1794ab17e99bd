#include "kit/rules/Rules.h"
#include "tests/TemporaryFolder.h"
#include "tests/app/model/AppModelFixture.h"

#include <QSignalSpy>
#include <fstream>
#include <gmock/gmock.h>

using namespace tessivo;
using namespace std::chrono_literals;
using testing::ElementsAre;

namespace {

// Readings

TEST_F(AppModelTests, oneEnrollmentReadingRunsAtATime) {
    controls.hangEnrollmentTool();
    QSignalSpy reading(&model(), &AppModel::readingChanged);
    model().readEnrollment();
    model().readEnrollment();
    EXPECT_TRUE(model().reading());
    EXPECT_FALSE(model().state().enrollmentChecked);
    ASSERT_TRUE(QTest::qWaitFor([this] { return controls.enrollmentRuns() == 1; }, patience));
    controls.setEnrolled(true);
    ASSERT_TRUE(finishReading());
    EXPECT_TRUE(model().state().enrollment->isManaged());
    EXPECT_TRUE(model().state().enrollmentChecked);
    EXPECT_EQ(reading.count(), 2);
    EXPECT_EQ(controls.enrollmentRuns(), 1u);

    controls.removeEnrollmentTool();
    model().readEnrollment();
    ASSERT_TRUE(finishReading());
    EXPECT_EQ(model().state().enrollment, std::nullopt) << "what was read before doesn't stand in";
    EXPECT_TRUE(model().state().enrollmentChecked);
}

TEST_F(AppModelTests, lettingGoOfTheModelEndsAToolThatHangs) {
    controls.hangEnrollmentTool();
    model().readEnrollment();
    ASSERT_TRUE(QTest::qWaitFor([this] { return controls.enrollmentRuns() == 1; }, patience));
    QElapsedTimer timer;
    timer.start();
    letGo();
    EXPECT_LT(timer.elapsed(), patience);
    QCoreApplication::processEvents();
}

TEST_F(AppModelTests, startingOverReadsAnewAndLeavesHistoryAlone) {
    store(answered(), "my notes");
    ASSERT_TRUE(model().saveToHistory(model().makeReport()));
    model().setPage(Page::history);
    controls.facts().physicalMemory = 8ull << 30;
    clock.advance(1h);

    model().reset();
    ASSERT_TRUE(finishReading());
    EXPECT_EQ(model().notes(), "");
    EXPECT_EQ(model().page(), Page::overview);
    SessionState fresh(model().state().machine, clock.now());
    fresh.battery = model().state().battery;
    fresh.enrollment = EnrollmentStatus{.mdmDetail = "No"};
    fresh.enrollmentChecked = true;
    EXPECT_EQ(model().state(), fresh);
    EXPECT_EQ(model().state().machine.memoryBytes, 8ull << 30);
    ASSERT_TRUE(model().state().battery);
    EXPECT_EQ(model().state().battery->cycleCount, 118);
    EXPECT_EQ(model().history().size(), 1u);
    EXPECT_EQ(model().message(), "Saved to History.");
    clock.advance(1s);
    EXPECT_EQ(SessionState::decode(stored()), model().state());
}

TEST_F(AppModelTests, aReadingThatRunsWhileStartingOverAnswersTheNewSession) {
    controls.hangEnrollmentTool();
    model().readEnrollment();
    ASSERT_TRUE(QTest::qWaitFor([this] { return controls.enrollmentRuns() == 1; }, patience));
    model().reset();
    EXPECT_FALSE(model().state().enrollmentChecked);
    controls.setEnrolled(true);
    ASSERT_TRUE(finishReading());
    EXPECT_TRUE(model().state().enrollment->isManaged());
    EXPECT_EQ(controls.enrollmentRuns(), 1u);
}

TEST_F(AppModelTests, readingTheMachineTouchesNothingElse) {
    store(answered());
    SessionState expected = model().state();
    controls.facts().physicalMemory = 8ull << 30;
    expected.machine.memoryBytes = 8ull << 30;
    model().readMachine();
    EXPECT_EQ(model().state(), expected);
}

// Reports

TEST_F(AppModelTests, untickingTheLastStepLeavesAnUntouchedChecklist) {
    model().setHandover(HandoverStep::backup, false);
    EXPECT_FALSE(model().state().handover);
    model().setHandover(HandoverStep::backup, true);
    model().setHandover(HandoverStep::music, true);
    model().setHandover(HandoverStep::backup, false);
    EXPECT_THAT(model().state().handover->ticked, ElementsAre(HandoverStep::music));
    model().setHandover(HandoverStep::music, false);
    EXPECT_FALSE(model().state().handover);
}

TEST_F(AppModelTests, aReportIsMadeOfTheSessionTheNotesAndTheHour) {
    store(answered(), "two scratches");
    const ConditionReport report = model().makeReport();
    EXPECT_EQ(report.created, clock.now());
    EXPECT_EQ(report.notes, "two scratches");
    EXPECT_EQ(report.appVersion, TESSIVO_VERSION);
    EXPECT_EQ(report.results, Rules::results(model().state()));
    EXPECT_NE(report.id, model().makeReport().id);
}

TEST_F(AppModelTests, aHistoryThatCannotBeWrittenIsTold) {
    const auto folder = mac.folders().applicationSupport().front();
    std::ofstream(folder / "History") << "a file in the folder's place";
    EXPECT_FALSE(model().saveToHistory(model().makeReport()));
    EXPECT_EQ(model().message()->find("Couldn't save to History: "), 0u) << *model().message();
    EXPECT_GT(model().message()->size(), 30u);
    EXPECT_TRUE(model().history().empty());
    std::filesystem::remove(folder / "History");
    EXPECT_TRUE(model().saveToHistory(model().makeReport()));
    EXPECT_EQ(model().message(), "Saved to History.");
    EXPECT_EQ(model().history().size(), 1u);
    letGo();
    EXPECT_EQ(model().history().size(), 1u) << "listed at the start";
}

TEST_F(AppModelTests, addedReportFilesAreCounted) {
    const TemporaryFolder folder;
    const auto file = [&](const char* name) {
        return folder.write(name, HistoryStore::encode(model().makeReport()));
    };
    const auto one = file("1.json"), two = file("2.json"), three = file("3.json");
    const auto other = folder.write("notes.json", "{\"a\":1}");
    struct Row {
        std::vector<std::filesystem::path> files;
        const char* message;
        size_t listed;
    };
    const Row rows[] = {
        {{}, "Added 0 reports.", 0},
        {{other, folder / "missing.json"}, "Added 0 of 2. The others aren't Tessivo report files.", 0},
        {{one}, "Added 1 report.", 1},
        {{one, two, three}, "Added 3 reports.", 3},
        {{other, two}, "Added 1 of 2. The others aren't Tessivo report files.", 3},
    };
    for (const Row& row : rows) {
        model().addReportFiles(row.files);
        EXPECT_EQ(model().message(), row.message);
        EXPECT_EQ(model().history().size(), row.listed);
    }
    model().deleteFromHistory(model().history().front().id);
    EXPECT_EQ(model().history().size(), 2u);
    model().deleteFromHistory(model().makeReport().id);
    EXPECT_EQ(model().history().size(), 2u);
}

} // namespace

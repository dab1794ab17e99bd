#include "app/pages/history/HistoryList.h"
#include "kit/Samples.h"
#include "kit/report/ReportAssembler.h"
#include "kit/support/Files.h"
#include "tests/TemporaryFolder.h"
#include "tests/app/pages/PageFixture.h"

#include <QMenu>

using namespace tessivo;
using namespace tessivo::pagetest;

namespace {

class HistoryTests : public PageFixture {
protected:
    ConditionReport make(double day, const std::string& modelID, std::optional<std::string> serial) {
        MachineInfo machine = Samples::machine();
        machine.modelID = modelID;
        machine.serial = std::move(serial);
        return ReportAssembler::make(Samples::session(machine), Date{794'000'000 + day * 86'400}, "1.0", "");
    }
    void keep(const ConditionReport& report) { model->saveToHistory(report); }

    HistoryList& list() { return *view->findChild<HistoryList*>(); }

    /// The rows as they are read out: headers, and under each its reports' first words.
    QStringList rows() {
        QStringList texts;
        for (int row = 0; row < list().model()->rowCount(); ++row) {
            const QModelIndex index = list().model()->index(row, 0);
            const bool header = index.data(HistoryRows::headerRole).toBool();
            const QString text = index.data(Qt::AccessibleTextRole).toString();
            texts << (header ? text : QStringLiteral("  ") + text.section(QLatin1Char(','), 0, 0));
        }
        return texts;
    }
    void select(int row) {
        list().setCurrentIndex(list().model()->index(row, 0));
        settle();
    }
};

} // namespace

TEST_F(HistoryTests, reportsStandByMacTheNewestFirst) {
    keep(make(1, "Mac14,2", "SERIAL1"));
    keep(make(2, "Macmini9,1", "SERIAL2"));
    keep(make(3, "Mac14,2", "SERIAL1"));
    keep(make(0, "Mac99,1", std::nullopt));
    open(Page::history);
    EXPECT_EQ(rows(), (QStringList{"MacBook Air (M2, 2022) · SERIAL1", "  Mar 3", "  Mar 1",
                                   "Mac mini (M1, 2020) · SERIAL2", "  Mar 2", "Mac99,1", "  Feb 28"}));
    EXPECT_TRUE(shown("No report selected"));
    select(0);
    EXPECT_FALSE(list().selection()) << "a header can't be selected";
}

TEST_F(HistoryTests, theSelectedReportIsShownAndStaysSelectedWhenAnotherComes) {
    keep(make(1, "Mac14,2", "SERIAL1"));
    open(Page::history);
    select(1);
    EXPECT_FALSE(shown("No report selected"));
    const auto selected = list().selection();
    ASSERT_TRUE(selected);
    keep(make(5, "Macmini9,1", "SERIAL2"));
    settle();
    EXPECT_EQ(list().selection(), selected);
    EXPECT_EQ(list().currentIndex().row(), 3);
    EXPECT_TRUE(press("Copy as Text"));
    EXPECT_THAT(controls->pasteboardText().value_or(""), testing::HasSubstr("SERIAL1"));
    EXPECT_EQ(model->history().size(), 2u) << "copying keeps nothing";
}

TEST_F(HistoryTests, deletingTheLastReportOfAMacTakesItsHeaderAlong) {
    keep(make(1, "Mac14,2", "SERIAL1"));
    keep(make(2, "Macmini9,1", "SERIAL2"));
    open(Page::history);
    select(1);
    EXPECT_TRUE(press("Delete"));
    EXPECT_EQ(rows(), (QStringList{"MacBook Air (M2, 2022) · SERIAL1", "  Mar 1"}));
    EXPECT_TRUE(shown("No report selected"));
    QContextMenuEvent menuEvent(
        QContextMenuEvent::Mouse, list().visualRect(list().model()->index(1, 0)).center(),
        list().viewport()->mapToGlobal(list().visualRect(list().model()->index(1, 0)).center()));
    QApplication::sendEvent(list().viewport(), &menuEvent);
    auto* menu = list().findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 1);
    EXPECT_EQ(menu->actions().front()->text(), "Delete");
    menu->actions().front()->trigger();
    menu->close();
    settle();
    EXPECT_TRUE(shown("Reports you save or print show up here."));
}

TEST_F(HistoryTests, aReportWhoseFileHasAnotherNameStays) {
    const ConditionReport report = make(1, "Mac14,2", "SERIAL1");
    keep(report);
    const auto folder = model->historyStore().folder;
    std::filesystem::rename(folder / (report.id.text() + ".json"), folder / "brought.json");
    model->refreshHistory();
    open(Page::history);
    select(1);
    EXPECT_TRUE(press("Delete"));
    EXPECT_EQ(rows().size(), 2) << "it fails in silence, and the list is read again";
}

TEST_F(HistoryTests, filesOfAnotherMacAreAddedAndOthersAreCounted) {
    const TemporaryFolder folder;
    const ConditionReport report = make(1, "Macmini9,1", "SERIAL2");
    Files::writeAtomically(folder.path() / "good.json", HistoryStore::encode(report));
    Files::writeAtomically(folder.path() / "bad.json", "{}");
    open(Page::history);
    dialogs.openAnswer = {folder.path() / "good.json"};
    EXPECT_TRUE(press("Add Report Files…"));
    EXPECT_EQ(dialogs.asked.last(), "Choose report files saved with Save Report File on another Mac.");
    EXPECT_TRUE(shown("Added 1 report."));
    dialogs.openAnswer = {folder.path() / "good.json", folder.path() / "bad.json",
                          folder.path() / "gone.json"};
    EXPECT_TRUE(press("Add Report Files…"));
    EXPECT_TRUE(shown("Added 1 of 3. The others aren't Tessivo report files."));
    EXPECT_EQ(rows().size(), 2) << "adding a file twice leaves one";
    dialogs.openAnswer = {};
    EXPECT_TRUE(press("Add Report Files…"));
    EXPECT_TRUE(shown("Added 1 of 3. The others aren't Tessivo report files."))
        << "a cancelled panel changes nothing";
}

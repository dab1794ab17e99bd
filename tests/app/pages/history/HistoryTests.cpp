#include "app/pages/history/HistoryDetail.h"
#include "app/pages/history/HistoryList.h"
#include "app/pages/shared/SheetView.h"
#include "kit/Samples.h"
#include "kit/report/ReportAssembler.h"
#include "kit/support/Files.h"
#include "tests/TemporaryFolder.h"
#include "tests/app/pages/PageFixture.h"

#include <QMenu>
#include <QScrollBar>

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
    ConditionReport keep(double day, const std::string& modelID, std::optional<std::string> serial) {
        const ConditionReport report = make(day, modelID, std::move(serial));
        model->saveToHistory(report);
        return report;
    }

    HistoryList& list() { return *view->findChild<HistoryList*>(); }
    SheetView& sheet() { return *view->findChild<SheetView*>(); }

    /// The rows as they are read out: headers, and under each its reports' first words.
    QStringList rows() {
        QStringList texts;
        for (int row = 0; row < list().model()->rowCount(); ++row) {
            const QModelIndex index = list().model()->index(row, 0);
            const QString text = index.data(Qt::AccessibleTextRole).toString();
            texts << (index.data(HistoryRows::headerRole).toBool() ? text : "  " + text.section(',', 0, 0));
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
    keep(1, "Mac14,2", "SERIAL1");
    keep(2, "Macmini9,1", "SERIAL2");
    keep(3, "Mac14,2", "SERIAL1");
    keep(0, "Mac99,1", std::nullopt);
    open(Page::history);
    EXPECT_EQ(rows(), (QStringList{"MacBook Air (M2, 2022) · SERIAL1", "  Mar 3", "  Mar 1",
                                   "Mac mini (M1, 2020) · SERIAL2", "  Mar 2", "Mac99,1", "  Feb 28"}));
    EXPECT_TRUE(shown("No report selected"));
    select(0);
    EXPECT_FALSE(list().selection()) << "a header can't be selected";
    select(1);
    for (const int width : {950, 780, 620, 950}) {
        showAt(*view, QSize(width, 520));
        EXPECT_EQ(clippedControls(view.get()).join("\n"), "") << width;
    }
    EXPECT_EQ(unnamedControls(view.get()).join("\n"), "");
}

TEST_F(HistoryTests, theSelectedReportIsShownAndStaysSelectedWhenAnotherComes) {
    keep(1, "Mac14,2", "SERIAL1");
    open(Page::history);
    select(1);
    EXPECT_FALSE(shown("No report selected"));
    const auto selected = list().selection();
    ASSERT_TRUE(selected);
    sheet().verticalScrollBar()->setValue(200);
    keep(5, "Macmini9,1", "SERIAL2");
    settle();
    EXPECT_EQ(list().selection(), selected);
    EXPECT_EQ(list().currentIndex().row(), 3);
    EXPECT_EQ(sheet().verticalScrollBar()->value(), 200) << "reading goes on where it was";
    EXPECT_TRUE(press("Copy as Text"));
    EXPECT_THAT(controls->pasteboardText().value_or(""), testing::HasSubstr("SERIAL1"));
    EXPECT_EQ(model->history().size(), 2u) << "copying keeps nothing";
    select(1);
    EXPECT_EQ(sheet().verticalScrollBar()->value(), 0) << "another report begins at its beginning";
}

TEST_F(HistoryTests, ofTwoFilesWithOneIdTheSelectedOneIsShownAndTheOddlyNamedOneStays) {
    ConditionReport report = keep(1, "Mac14,2", "SERIAL1");
    report.notes = "from the other file";
    Files::writeAtomically(model->historyStore().folder / "copy.json", HistoryStore::encode(report));
    model->refreshHistory();
    open(Page::history);
    ASSERT_EQ(rows().size(), 3);
    for (const int row : {1, 2, 1}) {
        select(row);
        EXPECT_EQ(sheet().preview().spokenValue().contains("from the other file"),
                  list().selectedReport()->notes == report.notes)
            << row;
    }
    EXPECT_TRUE(press("Delete"));
    select(1);
    EXPECT_TRUE(press("Delete"));
    EXPECT_EQ(rows().size(), 2) << "it fails in silence, and the list is read again";
    EXPECT_TRUE(shown("No report selected"));
}

TEST_F(HistoryTests, itsOwnReportIsNotSavedIntoItAnew) {
    keep(1, "Mac14,2", "SERIAL1");
    open(Page::history);
    select(1);
    model->setMessage(std::nullopt);
    // What another program took away meanwhile doesn't come back.
    std::filesystem::remove_all(model->historyStore().folder);
    const TemporaryFolder folder;
    dialogs.saveAnswer = folder / "a.pdf";
    dialogs.printAnswer = true;
    dialogs.printFile = folder / "b.pdf";
    EXPECT_TRUE(press("Save as PDF…"));
    EXPECT_TRUE(press("Print…"));
    EXPECT_EQ(namesIn(folder.path()), (std::vector<std::string>{"a.pdf", "b.pdf"}));
    EXPECT_FALSE(std::filesystem::exists(model->historyStore().folder));
    EXPECT_EQ(model->message(), std::nullopt);
}

TEST_F(HistoryTests, deletingTheLastReportOfAMacTakesItsHeaderAlong) {
    keep(1, "Mac14,2", "SERIAL1");
    keep(2, "Macmini9,1", "SERIAL2");
    open(Page::history);
    select(1);
    EXPECT_TRUE(press("Delete"));
    EXPECT_EQ(rows(), (QStringList{"MacBook Air (M2, 2022) · SERIAL1", "  Mar 1"}));
    EXPECT_TRUE(shown("No report selected"));
    QWidget* viewport = list().viewport();
    const QPoint place = list().visualRect(list().model()->index(1, 0)).center();
    QContextMenuEvent menuEvent(QContextMenuEvent::Mouse, place, viewport->mapToGlobal(place));
    QApplication::sendEvent(viewport, &menuEvent);
    auto* menu = list().findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 1);
    EXPECT_EQ(menu->actions().front()->text(), "Delete");
    menu->actions().front()->trigger();
    menu->close();
    settle();
    EXPECT_TRUE(shown("Reports you save or print show up here."));
}

TEST_F(HistoryTests, filesOfAnotherMacAreAddedAndOthersAreCounted) {
    const TemporaryFolder folder;
    const auto good = folder.write("good.json", HistoryStore::encode(make(1, "Macmini9,1", "SERIAL2")));
    const auto bad = folder.write("bad.json", "{}");
    open(Page::history);
    const auto add = [this](const std::vector<std::filesystem::path>& files) {
        dialogs.openAnswer = files;
        EXPECT_TRUE(press("Add Report Files…"));
        EXPECT_EQ(dialogs.asked.last(), "Choose report files saved with Save Report File on another Mac.");
    };
    add({good});
    EXPECT_TRUE(shown("Added 1 report."));
    add({good, bad, folder / "gone.json"});
    EXPECT_TRUE(shown("Added 1 of 3. The others aren't Tessivo report files."));
    EXPECT_EQ(rows().size(), 2) << "adding a file twice leaves one";
    add({});
    EXPECT_TRUE(shown("Added 1 of 3. The others aren't Tessivo report files.")) << "cancelled";
}

TEST_F(HistoryTests, theMessageStandsByTheButtonsItSpeaksOfAndMovesNothing) {
    const TemporaryFolder folder;
    const auto bad = folder.write("bad.json", "{}");
    keep(1, "Mac14,2", "SERIAL1");
    model->setMessage(std::nullopt);
    for (const QSize size : {QSize(950, 752), QSize(620, 520)}) {
        open(Page::history);
        select(1);
        showAt(*view, size);
        auto* detail = view->findChild<HistoryDetail*>();
        const QSize listBefore = list().size(), sheetBefore = sheet().size();
        EXPECT_TRUE(press("Copy as Text"));
        const QString copied = "Copied. Paste it into your listing or a message.";
        EXPECT_EQ(shownTexts(detail).last(), copied) << "under the report's buttons";
        dialogs.openAnswer = {bad};
        EXPECT_TRUE(press("Add Report Files…"));
        EXPECT_FALSE(shownTexts(view.get()).contains(copied));
        EXPECT_TRUE(shown("Added 0 of 1. The others aren't Tessivo report files."));
        EXPECT_FALSE(shows(detail, "Added 0 of 1. The others aren't Tessivo report files."));
        model->setMessage("Couldn't save to History: No space left on device");
        settle();
        EXPECT_EQ(list().size(), listBefore);
        EXPECT_EQ(sheet().size(), sheetBefore);
        EXPECT_EQ(clippedControls(view.get()).join("\n"), "");
        list().setSelectedReport(std::nullopt);
        model->setMessage("Saved to History.");
        settle();
        EXPECT_TRUE(shown("Saved to History.")) << "below the list where there is no report";
    }
}

#include "app/controls/Button.h"
#include "app/controls/GrowingTextField.h"
#include "app/document/ReportPreview.h"
#include "app/pages/shared/SheetView.h"
#include "app/pages/writeup/WriteUpSheet.h"
#include "kit/Samples.h"
#include "kit/report/ReportText.h"
#include "tests/FullDisk.h"
#include "tests/TemporaryFolder.h"
#include "tests/app/document/DocumentTesting.h"
#include "tests/app/pages/PageFixture.h"

#include <QScrollBar>

using namespace tessivo;
using namespace tessivo::pagetest;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class ReportPageTests : public PageFixture {
protected:
    void SetUp() override {
        PageFixture::SetUp();
        model->setState(Samples::session());
    }
    ReportPreview* preview() { return view->findChild<ReportPreview*>(); }
    bool sheetShows(const char* text) { return preview()->spokenValue().contains(text); }
    GrowingTextField* notes() { return findByName<GrowingTextField>(view.get(), "Notes for the report"); }
    std::string message() { return model->message().value_or(""); }

    TemporaryFolder folder;
};

} // namespace

TEST_F(ReportPageTests, tellsItsTallyAndWarnsOfWhatIsUnfinished) {
    const char* const warning = "Unfinished tests show as not run. You can make the report any time, but "
                                "buyers trust a complete one.";
    open(Page::report);
    EXPECT_TRUE(shown("12 work, 1 problem"));
    EXPECT_FALSE(shown(warning));
    model->change([](SessionState& state) { state.headphones->right = ManualAnswer::unanswered; });
    pass(20ms);
    EXPECT_TRUE(shown("11 work, 1 problem, 1 not finished"));
    EXPECT_TRUE(shown(warning));
    model->change([](SessionState& state) { state.headphones.reset(); });
    pass(20ms);
    EXPECT_TRUE(shown(warning)) << "not run at all";
    EXPECT_THAT(unnamedControls(view.get()), IsEmpty());
}

TEST_F(ReportPageTests, holdsNotesAndHandoverOnlyWhereThereAreSome) {
    model->change([](SessionState& state) { state.handover.reset(); });
    open(Page::report);
    EXPECT_FALSE(sheetShows("Seller's notes"));
    EXPECT_FALSE(sheetShows("Before handover"));
    type(notes(), "One scratch");
    EXPECT_EQ(model->notes(), "One scratch");
    model->setHandover(HandoverStep::backup, true);
    EXPECT_FALSE(sheetShows("One scratch")) << "not before the next frame";
    pass(20ms);
    EXPECT_TRUE(sheetShows("Seller's notes\nOne scratch\nBefore handover (ticked by the seller)"));
    model->setNotes("   ");
    pass(20ms);
    EXPECT_FALSE(sheetShows("Seller's notes"));
    EXPECT_EQ(notes()->text(), "   ");
}

TEST_F(ReportPageTests, isMadeAnewInItsPlaceOnceAFrameAndNotAtAllUnseen) {
    open(Page::report);
    QScrollBar* bar = view->findChild<SheetView*>()->verticalScrollBar();
    ASSERT_GT(bar->maximum(), 400);
    bar->setValue(400);
    const QTextDocument* before = preview()->document();
    const std::size_t waiting = clock.pending();
    type(notes(), "quick fingers");
    EXPECT_LE(clock.pending(), waiting + 2) << "one save and one rebuild";
    EXPECT_EQ(preview()->document(), before);
    pass(20ms);
    EXPECT_TRUE(sheetShows("quick fingers"));
    EXPECT_EQ(bar->value(), 400);
    const std::size_t idle = clock.pending();
    view->hide();
    model->setNotes("typed elsewhere");
    pass(200ms);
    EXPECT_TRUE(sheetShows("quick fingers"));
    view->show();
    settle();
    EXPECT_TRUE(sheetShows("typed elsewhere"));
    EXPECT_LE(clock.pending(), idle + 1);
}

TEST_F(ReportPageTests, drawsTheSheetSmallerWhereTheDetailIsNarrow) {
    open(Page::report);
    for (const auto& [window, sheet] :
         {std::pair(QSize(950, 752), 612), {{913, 700}, 612}, {{620, 520}, 329}}) {
        showAt(*view, window);
        EXPECT_EQ(preview()->size(), QSize(sheet, preview()->heightForWidth(sheet)));
        EXPECT_THAT(clippedControls(view.get()), IsEmpty()) << sheet;
    }
    EXPECT_EQ(findByName<Button>(view.get(), "Print…")->width(), 280 - 48);
}

TEST_F(ReportPageTests, eachActionTellsWhatItDidAndKeepsWhatItShould) {
    struct Row {
        const char* button;
        const char* when;
        std::size_t history;
        std::vector<std::string> files; ///< in the folder then
        const char* message;
        int dialogs;
    };
    const Row rows[] = {
        {"Save as PDF…", "saved", 1, {"Chosen"}, "Saved to History.", 1},
        {"Save as PDF…", "cancelled", 0, {}, "", 1},
        {"Save as PDF…", "failed", 0, {}, "", 2},
        {"Print…", "saved", 1, {"Chosen"}, "Saved to History.", 1},
        {"Print…", "cancelled", 1, {}, "Saved to History.", 1},
        {"Print…", "failed", 1, {}, "Saved to History.", 2},
        {"Copy as Text", "", 0, {}, "Copied. Paste it into your listing or a message.", 0},
        {"Save to History", "", 1, {}, "Saved to History.", 0},
        {"Save Report File…", "saved", 0, {"Chosen"}, "", 1},
        {"Save Report File…", "cancelled", 0, {}, "", 1},
        {"Save Report File…", "failed", 0, {}, "", 2},
    };
    for (const Row& row : rows) {
        const std::string when = row.when;
        SCOPED_TRACE(row.button + (", " + when));
        useMachine("macbook-air-m2");
        model->setState(Samples::session());
        open(Page::report);
        std::filesystem::remove(folder / "Chosen");
        const auto file = when == "failed" ? folder / "no folder" / "Chosen" : folder / "Chosen";
        dialogs.asked.clear();
        dialogs.saveAnswer.reset();
        if (when != "cancelled") dialogs.saveAnswer = file;
        dialogs.printAnswer = when != "cancelled";
        dialogs.printFile = file;
        ASSERT_TRUE(press(row.button));
        EXPECT_THAT(model->history(), SizeIs(row.history));
        EXPECT_EQ(namesIn(folder.path()), row.files);
        EXPECT_EQ(message(), row.message);
        EXPECT_EQ(shown(row.message), !message().empty());
        EXPECT_EQ(dialogs.asked.size(), row.dialogs);
    }
}

TEST_F(ReportPageTests, aSaveThatFailsTellsWhyAndWhatToDo) {
    open(Page::report);
    dialogs.printAnswer = true;
    const auto told = [this](const char* button, const std::filesystem::path& file) {
        dialogs.saveAnswer = dialogs.printFile = file;
        press(button);
        return dialogs.asked.last().toStdString();
    };
    const std::string noRoom = "There is no room on the disk. Make room or choose another disk, then ";
    {
        const FullDisk disk(2000);
        EXPECT_EQ(told("Save as PDF…", folder / "a.pdf"),
                  "The PDF couldn’t be saved | " + noRoom + "save it again.");
        EXPECT_EQ(told("Save Report File…", folder / "a.json"),
                  "The report file couldn’t be saved | " + noRoom + "save it again.");
        EXPECT_EQ(told("Print…", folder / "b.pdf"),
                  "The report couldn’t be printed | " + noRoom + "print it again.");
    }
    EXPECT_EQ(told("Save as PDF…", "/sys/a.pdf"), "The PDF couldn’t be saved | Tessivo may not write there. "
                                                  "Choose another folder, then save it again.");
    EXPECT_EQ(
        told("Save Report File…", folder / "no folder" / "a.json"),
        "The report file couldn’t be saved | The file could not be written. Check that there is room on the "
        "disk and that the folder can be written, then save it again.");
}

TEST_F(ReportPageTests, offersTheMacsOwnNamesAndSavesTheReportThatIsShown) {
    model->setNotes("As it stands");
    open(Page::report);
    dialogs.saveAnswer = folder / "a.json";
    press("Save Report File…");
    dialogs.saveAnswer = folder / "a.pdf";
    press("Save as PDF…");
    dialogs.printFile = folder / "b.pdf";
    dialogs.printAnswer = true;
    press("Print…");
    EXPECT_THAT(dialogs.asked, ElementsAre("Condition Report J4N7WQX2PL.json",
                                           "Condition Report J4N7WQX2PL.pdf", "Condition Report J4N7WQX2PL"));
    const ConditionReport saved = HistoryStore::decode(bytesOf(folder / "a.json"));
    EXPECT_EQ(saved.notes, "As it stands");
    EXPECT_EQ(saved.results, model->makeReport().results);
}

TEST_F(ReportPageTests, everyActionTakesTheReportThatIsShownMinuteForMinute) {
    open(Page::report);
    const QString made = preview()->spokenValue().section('\n', 2, 2);
    ASSERT_TRUE(made.startsWith("Tested "));
    pass(3min);
    press("Copy as Text");
    EXPECT_EQ(controls->pasteboardText(), ReportText::text(*preview()->report(), {}));
    EXPECT_TRUE(sheetShows(made.toUtf8()));
    press("Save to History");
    pass(1min);
    dialogs.saveAnswer = folder / "a.json";
    press("Save Report File…");
    EXPECT_EQ(HistoryStore::decode(bytesOf(folder / "a.json")), model->history().front());
    for (const auto& [paper, size] : {std::pair(Paper::a4, "595 x 842"), {Paper::letter, "612 x 792"}}) {
        controls->setPaper(paper);
        dialogs.saveAnswer = folder / "a.pdf";
        press("Save as PDF…");
        dialogs.printAnswer = true;
        dialogs.printFile = folder / "b.pdf";
        press("Print…");
        for (const char* file : {"a.pdf", "b.pdf"}) {
            const std::string pdf = bytesOf(folder / file);
            EXPECT_TRUE(documenttest::readText(pdf).contains(made)) << file;
            EXPECT_TRUE(documenttest::poppler("pdfinfo", {}, pdf).contains(size)) << file;
        }
    }
    EXPECT_THAT(model->history(), SizeIs(1)) << "it is one report";

    // What is typed is in the next one, also before it is drawn.
    type(notes(), "One scratch");
    press("Copy as Text");
    EXPECT_EQ(controls->pasteboardText(), ReportText::text(model->makeReport(), {}));
    EXPECT_FALSE(sheetShows(made.toUtf8()));
    EXPECT_TRUE(sheetShows("One scratch"));
}

TEST_F(ReportPageTests, aHistoryThatCannotBeWrittenIsTold) {
    open(Page::report);
    std::filesystem::remove_all(model->historyStore().folder);
    // A file where the folder should be: no one may write below it, root included.
    std::ofstream(model->historyStore().folder) << "in the way";
    press("Save to History");
    EXPECT_TRUE(message().starts_with("Couldn't save to History: ")) << message();
    EXPECT_TRUE(shown(message().c_str()));
    EXPECT_THAT(model->history(), IsEmpty());
}

TEST_F(ReportPageTests, opensTheListingDescriptionAndOnlyOnce) {
    open(Page::report);
    const auto helpOf = [this](const char* name) { return findByName<Button>(view.get(), name)->toolTip(); };
    EXPECT_EQ(helpOf("Write Listing Description…"),
              "An honest listing description made from this report, problems first");
    EXPECT_EQ(helpOf("Save Report File…"), "A file another Mac running Tessivo can add to its History");
    const auto sheets = [this] { return view->findChildren<WriteUpSheet*>().size(); };
    press("Write Listing Description…");
    EXPECT_TRUE(model->showWriteUp());
    EXPECT_EQ(sheets(), 1);
    model->setShowWriteUp(false);
    settle();
    EXPECT_EQ(sheets(), 0);
    model->setShowWriteUp(true);
    settle();
    EXPECT_EQ(sheets(), 1);
}

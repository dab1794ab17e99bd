#include "app/controls/Button.h"
#include "app/controls/GrowingTextField.h"
#include "app/document/ReportPreview.h"
#include "app/pages/report/SheetView.h"
#include "app/pages/writeup/WriteUpSheet.h"
#include "kit/Samples.h"
#include "kit/report/ReportText.h"
#include "tests/TemporaryFolder.h"
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
    void openReport() { open(Page::report); }

    ReportPreview* preview() { return view->findChild<ReportPreview*>(); }
    QString sheet() { return preview()->spokenValue(); }
    bool sheetShows(const char* text) { return sheet().contains(QString::fromUtf8(text)); }
    GrowingTextField* notes() {
        return findByName<GrowingTextField>(view.get(), QStringLiteral("Notes for the report"));
    }
    std::string message() { return model->message().value_or(""); }
    QStringList files() const {
        QStringList names;
        for (const std::string& name : namesIn(folder.path()))
            names << QString::fromStdString(name);
        return names;
    }

    TemporaryFolder folder;
};

/// What one button did, told in a line: history entries, dialogs, files, message.
struct Outcome {
    const char* button;
    const char* when;
    std::size_t history;
    const char* file; ///< what stands in the folder then
    const char* message;
    int dialogs;
};

} // namespace

TEST_F(ReportPageTests, tellsItsTallyAndWarnsOfWhatIsUnfinished) {
    const char* const warning =
        "Unfinished tests show as not run. You can make the report any time, but buyers "
        "trust a complete one.";
    openReport();
    EXPECT_TRUE(shown("12 work, 1 problem"));
    EXPECT_FALSE(shown(warning));
    model->change([](SessionState& state) { state.headphones->right = ManualAnswer::unanswered; });
    pass(20ms);
    EXPECT_TRUE(shown("11 work, 1 problem, 1 not finished"));
    EXPECT_TRUE(shown(warning));
    model->change([](SessionState& state) { state.headphones.reset(); });
    pass(100ms);
    EXPECT_TRUE(shown(warning)) << "not run at all";
    EXPECT_THAT(clippedControls(view.get()), IsEmpty());
    EXPECT_THAT(unnamedControls(view.get()), IsEmpty());
}

TEST_F(ReportPageTests, holdsNotesAndHandoverOnlyWhereThereAreSome) {
    model->change([](SessionState& state) { state.handover.reset(); });
    openReport();
    EXPECT_FALSE(sheetShows("Seller's notes"));
    EXPECT_FALSE(sheetShows("Before handover"));
    type(notes(), QStringLiteral("One scratch"));
    EXPECT_EQ(model->notes(), "One scratch");
    model->setHandover(HandoverStep::backup, true);
    EXPECT_FALSE(sheetShows("One scratch")) << "not before the next frame";
    pass(20ms);
    EXPECT_TRUE(sheetShows("Seller's notes\nOne scratch\nBefore handover (ticked by the seller)"));
    model->setNotes("   ");
    pass(100ms);
    EXPECT_FALSE(sheetShows("Seller's notes"));
    EXPECT_EQ(notes()->text(), "   ");
}

TEST_F(ReportPageTests, isMadeAnewOnceAFrameHoweverFastSomeoneTypesAndNotAtAllUnseen) {
    openReport();
    const QTextDocument* first = preview()->document();
    const std::size_t waiting = clock.pending();
    type(notes(), QStringLiteral("quick fingers"));
    EXPECT_LE(clock.pending(), waiting + 2) << "one save and one rebuild";
    EXPECT_EQ(preview()->document(), first);
    pass(20ms);
    EXPECT_TRUE(sheetShows("quick fingers"));
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

TEST_F(ReportPageTests, rereadingKeepsThePlaceThatSomeoneHasScrolledTo) {
    openReport();
    QScrollBar* bar = view->findChild<SheetView*>()->verticalScrollBar();
    ASSERT_GT(bar->maximum(), 400);
    bar->setValue(400);
    model->setNotes("more");
    pass(20ms);
    EXPECT_EQ(bar->value(), 400);
}

TEST_F(ReportPageTests, drawsTheSheetSmallerWhereTheDetailIsNarrow) {
    openReport();
    EXPECT_EQ(preview()->width(), 612);
    view->resize(913, 700);
    settle();
    EXPECT_EQ(preview()->width(), 612);
    view->resize(620, 520);
    settle();
    EXPECT_EQ(preview()->width(), 329);
    EXPECT_EQ(preview()->height(), preview()->heightForWidth(329));
    EXPECT_EQ(findByName<Button>(view.get(), QStringLiteral("Print…"))->width(), 280 - 48);
    EXPECT_THAT(clippedControls(view.get()), IsEmpty());
}

TEST_F(ReportPageTests, eachActionTellsWhatItDidAndKeepsWhatItShould) {
    const auto good = folder / "Chosen", bad = folder / "no folder" / "Chosen";
    const Outcome outcomes[] = {
        {"Save as PDF…", "saved", 1, "Chosen", "Saved to History.", 1},
        {"Save as PDF…", "cancelled", 0, "", "", 1},
        {"Save as PDF…", "failed", 0, "", "", 2},
        {"Print…", "saved", 1, "Chosen", "Saved to History.", 1},
        {"Print…", "cancelled", 1, "", "Saved to History.", 1},
        {"Print…", "failed", 1, "", "Saved to History.", 2},
        {"Copy as Text", "", 0, "", "Copied. Paste it into your listing or a message.", 0},
        {"Save to History", "", 1, "", "Saved to History.", 0},
        {"Save Report File…", "saved", 0, "Chosen", "", 1},
        {"Save Report File…", "cancelled", 0, "", "", 1},
        {"Save Report File…", "failed", 0, "", "", 1},
    };
    for (const Outcome& wanted : outcomes) {
        SCOPED_TRACE(std::string(wanted.button) + ", " + wanted.when);
        useMachine("macbook-air-m2");
        model->setState(Samples::session());
        openReport();
        std::filesystem::remove(good);
        const std::string when = wanted.when;
        dialogs.asked.clear();
        dialogs.saveAnswer = when == "cancelled" ? std::nullopt : std::optional(when == "saved" ? good : bad);
        dialogs.printAnswer = when != "cancelled";
        dialogs.printFile = when == "saved" ? good : bad;
        ASSERT_TRUE(press(wanted.button));
        EXPECT_THAT(model->history(), SizeIs(wanted.history));
        EXPECT_EQ(files().join(u' '), wanted.file);
        EXPECT_EQ(message(), wanted.message);
        EXPECT_EQ(dialogs.asked.size(), wanted.dialogs);
        if (!message().empty()) {
            EXPECT_TRUE(shown(wanted.message));
        }
    }
}

TEST_F(ReportPageTests, offersTheMacsOwnNamesAndSavesTheReportThatIsShown) {
    model->setNotes("As it stands");
    openReport();
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
    for (const char* name : {"a.pdf", "b.pdf"})
        EXPECT_TRUE(bytesOf(folder / name).starts_with("%PDF")) << name;
    ASSERT_THAT(model->history(), SizeIs(2));
    EXPECT_EQ(model->history()[0].notes, "As it stands");

    press("Copy as Text");
    ConditionReport copied = model->makeReport();
    EXPECT_EQ(controls->pasteboardText(), ReportText::text(copied, {}));
}

TEST_F(ReportPageTests, aHistoryThatCannotBeWrittenIsTold) {
    openReport();
    std::filesystem::remove_all(model->historyStore().folder);
    // A file where the folder should be: no one may write below it, root included.
    std::ofstream(model->historyStore().folder) << "in the way";
    press("Save to History");
    EXPECT_TRUE(message().starts_with("Couldn't save to History: ")) << message();
    EXPECT_TRUE(shown(message().c_str()));
    EXPECT_THAT(model->history(), IsEmpty());
}

TEST_F(ReportPageTests, opensTheListingDescriptionAndOnlyOnce) {
    openReport();
    auto* button = findByName<Button>(view.get(), QStringLiteral("Write Listing Description…"));
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->toolTip(), "An honest listing description made from this report, problems first");
    press("Write Listing Description…");
    EXPECT_TRUE(model->showWriteUp());
    EXPECT_THAT(view->findChildren<WriteUpSheet*>(), SizeIs(1));
    model->setShowWriteUp(false);
    settle();
    EXPECT_THAT(view->findChildren<WriteUpSheet*>(), IsEmpty());
    model->setShowWriteUp(true);
    settle();
    EXPECT_THAT(view->findChildren<WriteUpSheet*>(), SizeIs(1));
}

#include "app/controls/Button.h"
#include "app/controls/Checkbox.h"
#include "app/controls/LinkLabel.h"
#include "app/controls/SegmentedPicker.h"
#include "app/controls/StatusBadge.h"
#include "app/controls/TextLabel.h"
#include "app/pages/shared/ActivationLockPanel.h"
#include "kit/Samples.h"
#include "tests/TemporaryFolder.h"
#include "tests/app/pages/PageFixture.h"

using namespace tessivo;
using namespace tessivo::pagetest;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class HandoverTests : public PageFixture {
protected:
    QStringList boxes() {
        QStringList names;
        for (auto* box : view->findChildren<Checkbox*>())
            names << accessibleNameOf(box) + (isChecked(box) ? " [x]" : " [ ]");
        return names;
    }
    std::set<HandoverStep> ticked() const {
        return state().handover ? state().handover->ticked : std::set<HandoverStep>{};
    }
};

} // namespace

TEST_F(HandoverTests, walksThroughTheStepsInOrder) {
    open(Page::handover);
    EXPECT_TRUE(
        shown("Apple's steps for handing this Mac to someone else, so none of your data or your "
              "Activation Lock goes with it. Tick each one as you do it. Last, after this report: the "
              "seller erases the Mac (Erase All Content and Settings). The report lists them as ticked "
              "by you."));
    EXPECT_THAT(boxes(),
                ElementsAre("Back up your files [ ]", "Deauthorize this Mac for your purchases [ ]",
                            "Turn off Find My Mac [ ]", "Sign out of your Apple Account (iCloud) [ ]",
                            "Unpair Bluetooth accessories you're keeping [ ]"));
    for (auto* box : view->findChildren<Checkbox*>())
        EXPECT_EQ(box->accessibleDescription(), "Ticked by you. Tessivo can't check this.");
    const QStringList texts = shownTexts(view.get());
    qsizetype at = -1;
    for (const char* text :
         {"Erase Before Sale", "Apple: What to do before you sell your Mac", "1. Before you save the report",
          "Back up your files", "Check that Activation Lock is off", "2. Save the report", "Save as PDF…",
          "3. Last: erase", "Erase the Mac", "Erase All Content and Settings",
          "These erase Tessivo and this checklist too, so there's nothing to tick. Tessivo never erases or "
          "signs "
          "out anything itself.",
          "If you're the buyer",
          "Before the erase, ask the seller to show Activation Lock Status: Disabled in System Information "
          "(Hardware), then to erase the Mac in front of you. Setup should not ask for the seller's Apple "
          "Account."}) {
        const qsizetype found = texts.indexOf(text, at + 1);
        EXPECT_GT(found, at) << text;
        at = std::max(at, found);
    }
    EXPECT_FALSE(shown("Reset NVRAM (Intel Macs)"));
    for (const int width : {950, 620}) {
        showAt(*view, QSize(width, 752));
        EXPECT_THAT(clippedControls(view.get()), IsEmpty()) << width;
    }
    EXPECT_THAT(unnamedControls(view.get()), IsEmpty());
}

TEST_F(HandoverTests, anIntelMacAndAnUnknownOneResetTheirMemoryToo) {
    const std::pair<const char*, const char*> macs[] = {
        {"imac-2019-fusion", "Start up from macOS Recovery"},
        {"macbook-pro-t2-worn", "Erase All Content and Settings"},
        {"imac-unknown", "Reinstall macOS"}};
    for (const auto& [machine, link] : macs) {
        useMachine(machine);
        open(Page::handover);
        EXPECT_TRUE(shown("Reset NVRAM (Intel Macs)")) << machine;
        EXPECT_NE(findByName<QWidget>(view.get(), "Optional"), nullptr);
        EXPECT_NE(findByName<LinkLabel>(view.get(), link), nullptr) << machine;
        EXPECT_EQ(boxes().size(), 5) << machine;
    }
}

TEST_F(HandoverTests, ticksAreKeptTakenBackAndClearedByStartingOver) {
    open(Page::handover);
    EXPECT_TRUE(press("Back up your files"));
    EXPECT_TRUE(press("Turn off Find My Mac"));
    EXPECT_THAT(ticked(), ElementsAre(HandoverStep::backup, HandoverStep::findMy));
    open(Page::handover);
    EXPECT_EQ(boxes().filter("[x]").size(), 2);
    press("Back up your files");
    press("Turn off Find My Mac");
    EXPECT_EQ(state().handover, std::nullopt) << "an emptied checklist is an untouched one";
    // The words beside the box belong to it.
    click(findByName<TextLabel>(view.get(), "Back up your files"));
    EXPECT_THAT(ticked(), ElementsAre(HandoverStep::backup));
    model->reset();
    settle();
    EXPECT_TRUE(boxes().filter("[x]").isEmpty());
}

TEST_F(HandoverTests, asksAboutActivationLockUnderFindMyAlone) {
    open(Page::handover);
    ASSERT_THAT(view->findChildren<ActivationLockPanel*>(), SizeIs(1));
    auto* badge = view->findChild<ActivationLockPanel*>()->findChild<StatusBadge*>();
    for (const auto& [press, status] : {std::pair("Disabled", TestStatus::works),
                                        {"Enabled", TestStatus::problem},
                                        {"Not checked yet", TestStatus::checkByHand}}) {
        EXPECT_TRUE(clickOn(view.get(), press));
        EXPECT_EQ(badge->status(), status) << press;
        EXPECT_EQ(model->result(TestID::activationLock).status, status) << press;
    }
}

TEST_F(HandoverTests, everyLinkOpensItsOwnPage) {
    open(Page::handover);
    for (auto* link : view->findChildren<LinkLabel*>())
        link->click();
    QStringList paths;
    for (const std::string& url : controls->openedURLs())
        paths << QString::fromStdString(url).section('/', -1);
    EXPECT_THAT(paths, ElementsAre("102773", "102307", "118292", "104958", "104958", "102773", "102664"));
}

TEST_F(HandoverTests, aReportSavedBeforeATickDoesNotShowIt) {
    model->setState(Samples::session(state().machine));
    model->change([](SessionState& session) { session.handover.reset(); });
    open(Page::handover);
    press("Save to History");
    EXPECT_TRUE(shown("Saved to History."));
    press("Back up your files");
    ASSERT_THAT(model->history(), SizeIs(1));
    EXPECT_EQ(model->history()[0].handover, std::nullopt);
    clock.advance(std::chrono::seconds(5));
    const TemporaryFolder folder;
    dialogs.saveAnswer = folder / "Report.pdf";
    press("Save as PDF…");
    ASSERT_THAT(model->history(), SizeIs(2));
    ASSERT_TRUE(model->history()[0].handover.has_value());
    EXPECT_TRUE(model->history()[0].handover->front().ticked);
}

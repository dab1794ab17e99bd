#include "app/controls/Button.h"
#include "app/controls/Checkbox.h"
#include "app/controls/LinkLabel.h"
#include "app/controls/SegmentedPicker.h"
#include "app/controls/StatusBadge.h"
#include "app/controls/TextLabel.h"
#include "app/pages/handover/ActivationLockPanel.h"
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
    void openHandover() { open(Page::handover); }

    QStringList boxes() {
        QStringList names;
        for (auto* box : view->findChildren<Checkbox*>())
            names << accessibleNameOf(box) +
                         (isChecked(box) ? QStringLiteral(" [x]") : QStringLiteral(" [ ]"));
        return names;
    }
    QStringList links() {
        QStringList texts;
        for (auto* link : view->findChildren<LinkLabel*>())
            texts << link->text();
        return texts;
    }
    std::set<HandoverStep> ticked() const {
        return state().handover ? state().handover->ticked : std::set<HandoverStep>{};
    }
};

} // namespace

TEST_F(HandoverTests, walksThroughTheStepsInOrder) {
    openHandover();
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
        const qsizetype found = texts.indexOf(QString::fromUtf8(text), at + 1);
        EXPECT_GT(found, at) << text;
        at = std::max(at, found);
    }
    EXPECT_FALSE(shown("Reset NVRAM (Intel Macs)"));
    for (const int width : {950, 620}) {
        view->resize(width, 752);
        settle();
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
        openHandover();
        EXPECT_TRUE(shown("Reset NVRAM (Intel Macs)")) << machine;
        EXPECT_NE(findNamed(view.get(), QStringLiteral("Optional"), [](QWidget*) { return true; }), nullptr);
        EXPECT_TRUE(links().contains(QString::fromUtf8(link))) << machine;
        EXPECT_EQ(boxes().size(), 5) << machine;
    }
}

TEST_F(HandoverTests, ticksAreKeptTakenBackAndSurviveTheRoom) {
    openHandover();
    EXPECT_TRUE(press("Back up your files"));
    EXPECT_TRUE(press("Turn off Find My Mac"));
    EXPECT_THAT(ticked(), ElementsAre(HandoverStep::backup, HandoverStep::findMy));
    openHandover();
    EXPECT_EQ(boxes().filter(QStringLiteral("[x]")).size(), 2);
    press("Back up your files");
    press("Turn off Find My Mac");
    EXPECT_EQ(state().handover, std::nullopt) << "an emptied checklist is an untouched one";
    // The words beside the box belong to it.
    for (auto* label : view->findChildren<TextLabel*>())
        if (label->text() == QStringLiteral("Back up your files")) click(label);
    EXPECT_THAT(ticked(), ElementsAre(HandoverStep::backup));
    model->reset();
    settle();
    EXPECT_TRUE(boxes().filter(QStringLiteral("[x]")).isEmpty());
}

TEST_F(HandoverTests, asksAboutActivationLockUnderFindMyAlone) {
    openHandover();
    EXPECT_THAT(view->findChildren<ActivationLockPanel*>(), SizeIs(1));
    auto* panel = view->findChild<ActivationLockPanel*>();
    auto* badge = panel->findChild<StatusBadge*>();
    EXPECT_EQ(badge->status(), model->result(TestID::activationLock).status);
    EXPECT_TRUE(press("Disabled"));
    EXPECT_EQ(state().activationLock, ActivationLockAnswer::disabled);
    EXPECT_EQ(badge->status(), TestStatus::works);
    EXPECT_TRUE(press("Enabled"));
    EXPECT_EQ(badge->status(), TestStatus::problem);
    EXPECT_TRUE(press("Not checked yet"));
    EXPECT_EQ(state().activationLock, ActivationLockAnswer::unanswered);
}

TEST_F(HandoverTests, everyLinkOpensItsOwnPage) {
    openHandover();
    QStringList paths;
    for (auto* link : view->findChildren<LinkLabel*>()) {
        const std::size_t before = controls->openedURLs().size();
        link->click();
        ASSERT_EQ(controls->openedURLs().size(), before + 1);
        paths << QString::fromStdString(controls->openedURLs().back()).section(u'/', -1);
    }
    EXPECT_THAT(paths, ElementsAre("102773", "102307", "118292", "104958", "104958", "102773", "102664"));
}

TEST_F(HandoverTests, aReportSavedBeforeATickDoesNotShowIt) {
    model->setState(Samples::session(state().machine));
    model->change([](SessionState& session) { session.handover.reset(); });
    openHandover();
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

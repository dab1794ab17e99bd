#include "app/controls/Button.h"
#include "app/controls/StatusGlyph.h"
#include "app/pages/report/PickupRow.h"
#include "app/pages/report/PickupView.h"
#include "kit/Samples.h"
#include "tests/app/pages/PageFixture.h"

using namespace tessivo;
using namespace tessivo::pagetest;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class PickupTests : public PageFixture {
protected:
    /// The rows as they read, "Storage | 512 GB drive | ~5 s | Works | Open".
    QStringList rows() {
        QStringList found;
        for (auto* row : view->findChildren<PickupRow*>()) {
            if (!row->isVisibleTo(view.get())) continue;
            const QStringList texts = shownTexts(row);
            QStringList read = texts.filter(QRegularExpression("^(?!~|Open$)"));
            read << texts.filter(QRegularExpression("^~\\d+ s$"));
            for (auto* glyph : row->findChildren<StatusGlyph*>())
                if (glyph->isVisibleTo(row)) read << accessibleNameOf(glyph);
            found << (read << texts.filter(QRegularExpression("^Open$"))).join(" | ");
        }
        return found;
    }
    bool openRow(const char* title) {
        for (auto* button : view->findChildren<Button*>())
            if (button->isVisible() && button->accessibleDescription() == QString::fromUtf8(title))
                return click(button);
        return false;
    }
};

} // namespace

TEST_F(PickupTests, listsTheFactsAndTheStepsInOrder) {
    model->setState(Samples::session());
    open(Page::pickup);
    for (const char* text :
         {"Buying this Mac? A PDF can be edited, so rerun the quick tests here and compare them with the "
          "seller's report. It takes under two minutes.",
          "J4N7WQX2PL", "MacBook Air (M2, 2022), Mac14,2", "Not enrolled in device management", "512 GB",
          "Also open Apple menu › About This Mac: its serial number should match.",
          "Also worth a look: Activation Lock (on the This Mac page) and the trackpad, ports and microphones "
          "if "
          "you have time."})
        EXPECT_TRUE(shown(text)) << text;
    EXPECT_THAT(
        rows(),
        ElementsAre("Open Tessivo on this Mac and choose Check at Pickup | It shows this Mac's serial "
                    "number and opens each quick test | ~10 s",
                    "Model and serial number | Model ID Mac14,2, serial J4N7WQX2PL; About This Mac shows "
                    "the same serial | ~15 s",
                    "Device management | Not enrolled | ~5 s | Works | Open",
                    "Storage | 512 GB drive | ~5 s | Works | Open",
                    "Display colors | No dots that stay lit or dark on any color | ~30 s | Problem | Open",
                    "Speakers | A clear tone from each side | ~15 s | Works | Open",
                    "Keyboard | Run a finger along each row; every key lights up | ~30 s | Works | Open",
                    "Camera | A clear picture | ~10 s | Works | Open"));
    for (const int width : {950, 620}) {
        showAt(*view, QSize(width, 752));
        EXPECT_THAT(clippedControls(view.get()), IsEmpty()) << width;
    }
    EXPECT_THAT(unnamedControls(view.get()), IsEmpty());
}

TEST_F(PickupTests, opensThePageThatAStepIsAbout) {
    model->setState(Samples::session());
    const std::pair<const char*, Page> ways[] = {
        {"Device management", Page::overview}, {"Storage", Page::storage},
        {"Display colors", Page::display},     {"Speakers", Page::speakers},
        {"Keyboard", Page::keyboard},          {"Camera", Page::cameras}};
    for (const auto& [title, page] : ways) {
        model->setPage(Page::pickup);
        open(Page::pickup);
        EXPECT_TRUE(openRow(title)) << title;
        EXPECT_EQ(model->page(), page) << title;
    }
    EXPECT_EQ(PickupView::pageOf({"Something else"}), std::nullopt);
    EXPECT_FALSE(openRow("Model and serial number"));
}

TEST_F(PickupTests, followsTheSession) {
    open(Page::pickup);
    EXPECT_TRUE(rows().filter("Camera").isEmpty());
    model->setState(Samples::session());
    settle();
    EXPECT_EQ(rows().size(), 8);
    model->change([](SessionState& state) {
        state.machine.serial.reset();
        state.machine.storageBytes.reset();
        state.machine.modelID = "Mac99,1";
        state.overrides[TestID::speakers].notIncluded = true;
        state.keyboard.pressed.clear();
    });
    settle();
    EXPECT_EQ(rows().size(), 6);
    EXPECT_EQ(shownTexts(view.get()).count("Couldn't read it"), 2);
    EXPECT_TRUE(shown("Mac99,1"));
    EXPECT_TRUE(rows()[1].contains("serial as in About This Mac"));
    EXPECT_TRUE(rows().filter("Keyboard").value(0).contains("Not finished"));
}

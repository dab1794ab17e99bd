#include "app/controls/FactGrid.h"
#include "app/controls/Picker.h"
#include "tests/app/pages/PageFixture.h"

using namespace tessivo;
using namespace tessivo::pagetest;
using namespace std::chrono_literals;

namespace {

class ReadingPagesTests : public PageFixture {};

} // namespace

TEST_F(ReadingPagesTests, aLinkThatComesUpWhileThePageIsOpenReadsSo) {
    useMachine("mac-mini-m4");
    open(Page::ethernet);
    EXPECT_TRUE(shown("Ethernet (en0)"));
    EXPECT_TRUE(shown("No link: plug in a cable"));
    EXPECT_TRUE(shown("Plug in a cable from a router or switch"));
    auto& flags = (*controls->entries("IONetworkInterface").front().properties)["IOInterfaceFlags"];
    flags = 0x1002;
    pass(1s);
    EXPECT_TRUE(shown("The port is switched off in the system's settings."));
    flags = 0x1003;
    ASSERT_TRUE(controls->raiseLink("en0", 2'500'000'000));
    pass(1s);
    EXPECT_TRUE(shown("Link up at 2.5 Gb/s"));
    const TestResult result = model->result(TestID::ethernet);
    EXPECT_EQ(result.summary, "A wired link came up at 2.5 Gb/s");
    EXPECT_THAT(result.details, testing::Contains("The link came up when the cable went in"));
    ASSERT_TRUE(controls->dropLink("en0"));
    pass(1s);
    EXPECT_TRUE(shown("No link: plug in a cable")) << "the row shows the port as it is";
    EXPECT_EQ(model->result(TestID::ethernet).status, TestStatus::works) << "a link once seen stays seen";
}

TEST_F(ReadingPagesTests, aLinkThatWasUpReadsOtherwiseAndAbsurdSpeedsAreNoFigure) {
    useMachine("mac-mini-m4");
    controls->raiseLink("en0", -1);
    open(Page::ethernet);
    EXPECT_TRUE(shown("Link up"));
    EXPECT_THAT(model->result(TestID::ethernet).details,
                testing::Contains("The link was already up when the test started"));
    controls->raiseLink("en0", 4'294'967'295);
    pass(1s);
    EXPECT_TRUE(shown("Link up at 4.3 Gb/s"));
}

TEST_F(ReadingPagesTests, aPageThatLooksEachSecondLeavesASaveItsTime) {
    for (const Page page : {Page::ethernet, Page::ports}) {
        useMachine("mac-mini-m4");
        open(page);
        pass(1s);
        model->setNotes("typed meanwhile");
        pass(2s);
        EXPECT_EQ(platform->defaults().text("notes"), "typed meanwhile") << title(page);
    }
}

TEST_F(ReadingPagesTests, withoutABuiltInPortThePageSaysWhatToDo) {
    useMachine("imac-2019-fusion");
    controls->breakReading(SimulatedReading::network);
    open(Page::ethernet);
    EXPECT_TRUE(shown("No built-in Ethernet port found"));
    EXPECT_TRUE(
        shown("Some iMacs have the Ethernet port on the power adapter, and some have none. If this one has "
              "none, tick \"Not part of this sale\" below."));
}

TEST_F(ReadingPagesTests, theListedSizeIsSetComparedAndTakenBack) {
    open(Page::storage);
    auto* picker = findByName<Picker>(view.get(), "Your listing says");
    ASSERT_NE(picker, nullptr);
    EXPECT_EQ(picker->currentText(), "Not set");
    EXPECT_EQ(picker->itemText(1), "128 GB");
    const auto choose = [&](const char* text) { Q_EMIT picker->activated(picker->findText(text)); };
    choose("1 TB");
    EXPECT_EQ(state().listedStorageGB, 1024);
    EXPECT_EQ(picker->currentText(), "1 TB");
    EXPECT_TRUE(shown("256 GB drive, but the listing says 1 TB"));
    choose("Not set");
    EXPECT_FALSE(state().listedStorageGB);
    model->change([](SessionState& session) { session.listedStorageGB = 1000; });
    EXPECT_EQ(picker->currentText(), "1000 GB") << "a size of another hand is shown as what it is";
}

TEST_F(ReadingPagesTests, theDrivesFactsStandBesideTheSizesItWasSoldWith) {
    const std::pair<const char*, QStringList> rows[] = {
        {"macbook-air-m2", {"245 GB", "256 GB", "256 GB, 512 GB, 1 TB, 2 TB"}},
        {"imac-2019-fusion", {"Fusion Drive"}},
        {"imac-2019-replaced-drive",
         {"2 TB",
          "This model's drive can be replaced, so it may not be the one it was sold with. A size Apple "
          "didn't sell is a check by hand: ask the seller."}},
        {"mac17-unknown", {"This model isn't in Tessivo's list"}},
        {"mac-mini-split-drive", {"300 GB", "—"}},
        {"all-readings-fail", {"Couldn't read it"}},
    };
    for (const auto& [machine, texts] : rows) {
        useMachine(machine);
        open(Page::storage);
        for (const QString& text : texts)
            EXPECT_TRUE(shownTexts(view.get()).contains(text))
                << machine << ": " << text.toStdString() << "\n"
                << shownTexts(view.get()).join("\n").toStdString();
    }
}

TEST_F(ReadingPagesTests, theTechSpecsPageOpensAndTheDriveIsReadAgain) {
    useMachine("imac-2019-fusion");
    open(Page::storage);
    EXPECT_TRUE(press("Apple's Tech Specs for this model"));
    EXPECT_EQ(controls->openedURLs(), model->state().machine.spec()->sources);
    controls->breakReading(SimulatedReading::storage);
    EXPECT_TRUE(press("Read Again"));
    EXPECT_TRUE(shown("Couldn't read the drive size"));
}

TEST_F(ReadingPagesTests, aFullChargeWithoutADesignCapacityIsNoFigure) {
    useMachine("macbook-no-capacity");
    controls->setBattery("NominalChargeCapacity", 4000);
    open(Page::battery);
    EXPECT_TRUE(press("Read Again"));
    ASSERT_EQ(state().battery->fullChargeCapacity, 4000);
    auto* facts = view->findChild<FactGrid*>();
    QStringList values;
    for (int row = 0; row < facts->count(); ++row)
        values << facts->value(row);
    EXPECT_EQ(values, (QStringList{"Couldn't read it", "1", "Couldn't read it", "Normal"}));
}

TEST_F(ReadingPagesTests, theBatterysFactsAreReadWhenAsked) {
    const std::pair<const char*, QStringList> rows[] = {
        {"macbook-pro-t2-worn",
         {"77%", "1,103 (designed for 1,000)", "3,918 mAh of 5,088 mAh when new", "Fair"}},
        {"macbook-battery-silent", {"Couldn't read it", "Couldn't read it", "Couldn't read it", "Not given"}},
        {"mac-mini-m4", {"Couldn't read it", "Couldn't read it", "Couldn't read it", "Not given"}},
    };
    for (const auto& [machine, values] : rows) {
        useMachine(machine);
        open(Page::battery);
        EXPECT_TRUE(shown("Not read yet"));
        EXPECT_TRUE(press("Read Again"));
        EXPECT_FALSE(shown("Not read yet"));
        auto* facts = view->findChild<FactGrid*>();
        for (int row = 0; row < facts->count(); ++row)
            EXPECT_EQ(facts->value(row), values.value(row)) << machine;
    }
}

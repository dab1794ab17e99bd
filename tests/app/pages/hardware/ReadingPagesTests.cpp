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
    ASSERT_TRUE(controls->raiseLink("en0", 2'500'000'000));
    pass(1s);
    EXPECT_TRUE(shown("Link up at 2.5 Gb/s"));
    const ConditionReport report = model->makeReport();
    const TestResult* result = report.result(TestID::ethernet);
    ASSERT_NE(result, nullptr);
    EXPECT_EQ(result->summary, "A wired link came up at 2.5 Gb/s");
    EXPECT_THAT(result->details, testing::Contains("The link came up when the cable went in"));

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
    const auto choose = [&](const char* text) {
        const int index = picker->findText(text);
        picker->setCurrentIndex(index);
        Q_EMIT picker->activated(index);
    };
    choose("1 TB");
    EXPECT_EQ(state().listedStorageGB, 1024);
    EXPECT_EQ(model->result(TestID::storage).status, TestStatus::problem);
    choose("Not set");
    EXPECT_FALSE(state().listedStorageGB);

    model->change([](SessionState& session) { session.listedStorageGB = 1000; });
    EXPECT_EQ(picker->currentText(), "1000 GB") << "a size of another hand is shown as what it is";
    EXPECT_EQ(model->result(TestID::storage).status, TestStatus::problem) << "1000 isn't 1024";
}

TEST_F(ReadingPagesTests, everyRowOfTheStorageTableIsReadOnThePage) {
    struct Row {
        const char* machine;
        std::optional<std::int64_t> listed;
        const char* summary;
        std::vector<const char*> alsoShown;
    };
    const Row rows[] = {
        {"macbook-air-m2",
         256,
         "256 GB drive, a size this model was sold with",
         {"256 GB, 512 GB, 1 TB, 2 TB"}},
        {"macbook-air-m2", 512, "256 GB drive, but the listing says 512 GB", {}},
        {"macbook-air-small-drive", {}, "128 GB drive, a size this model wasn't sold with", {}},
        {"imac-2019-fusion", {}, "1 TB drive, a size this model was sold with", {"Fusion Drive"}},
        {"imac-2019-replaced-drive",
         {},
         "2 TB drive, a size this model wasn't sold with. Ask whether it was replaced.",
         {"This model's drive can be replaced, so it may not be the one it was sold with. A size Apple "
          "didn't sell is "
          "a check by hand: ask the seller.",
          "Apple's Tech Specs for this model"}},
        {"mac17-unknown",
         {},
         "512 GB drive. Compare it with the listing.",
         {"This model isn't in Tessivo's list"}},
        {"mac17-unknown", 512, "512 GB drive, as listed", {}},
        {"mac17-unknown", 1024, "512 GB drive, but the listing says 1 TB", {}},
        {"mac-mini-split-drive", {}, nullptr, {"—"}},
        {"all-readings-fail", {}, "Couldn't read the drive size", {"Couldn't read it"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.machine);
        useMachine(row.machine);
        model->change([&](SessionState& session) { session.listedStorageGB = row.listed; });
        open(Page::storage);
        if (row.summary) {
            EXPECT_TRUE(shown(row.summary)) << model->result(TestID::storage).summary;
        } else {
            EXPECT_THAT(model->result(TestID::storage).summary, testing::EndsWith(" isn't a standard size"));
        }
        for (const char* text : row.alsoShown)
            EXPECT_TRUE(shown(text)) << text;
    }
}

TEST_F(ReadingPagesTests, theTechSpecsPageOpensAndTheDriveIsReadAgain) {
    useMachine("imac-2019-fusion");
    open(Page::storage);
    EXPECT_TRUE(press("Apple's Tech Specs for this model"));
    EXPECT_EQ(controls->openedURLs().size(), 1u);
    controls->breakReading(SimulatedReading::storage);
    EXPECT_TRUE(press("Read Again"));
    EXPECT_TRUE(shown("Couldn't read the drive size"));
}

TEST_F(ReadingPagesTests, everyRowOfTheBatteryTableIsReadOnThePage) {
    const std::pair<const char*, std::vector<const char*>> rows[] = {
        {"macbook-air-m2", {"Maximum capacity", "Normal"}},
        {"macbook-pro-t2-worn", {"Charge cycles"}},
        {"macbook-pro-service-battery", {"macOS says the battery needs attention: Service Recommended"}},
        {"macbook-no-capacity", {"macOS condition: Normal, 1 charge cycle"}},
        {"macbook-power-source-only", {"Couldn't read it"}},
        {"macbook-battery-silent",
         {"Battery found, but its health couldn't be read. Check by hand.", "Not given"}},
        {"macbook-battery-hidden", {"Couldn't read the battery here. Check by hand."}},
        {"mac-mini-m4", {"None built in (desktop Macs have no battery)", "Couldn't read it"}},
        {"mac17-unknown", {"No battery found. Check whether this model has one."}},
    };
    for (const auto& [machine, texts] : rows) {
        SCOPED_TRACE(machine);
        useMachine(machine);
        open(Page::battery);
        EXPECT_TRUE(shown("Not read yet"));
        EXPECT_TRUE(press("Read Again"));
        EXPECT_FALSE(shown("Not read yet"));
        for (const char* text : texts)
            EXPECT_TRUE(shown(text)) << text << "\n" << shownTexts(view.get()).join("\n").toStdString();
    }
}

#include "app/controls/BusyMark.h"
#include "app/controls/Button.h"
#include "app/pages/writeup/ListingText.h"
#include "app/pages/writeup/WriteUpSheet.h"
#include "kit/Samples.h"
#include "kit/listing/Lang.h"
#include "platform/simulated/SimulatedWording.h"
#include "tests/app/pages/PageFixture.h"

#include <QAccessible>
#include <QFocusFrame>
#include <QTest>

using namespace tessivo;
using namespace tessivo::pagetest;

namespace {

constexpr int patience = 5000; // milliseconds that another thread may take

class WriteUpTests : public PageFixture {
protected:
    void SetUp() override {
        PageFixture::SetUp();
        SessionState session = Samples::session(Samples::machine());
        session.overrides[TestID::display].problem = "One green dot near the left edge";
        model->setState(session);
        controls->wording().setAvailability(WordingAvailability::available);
    }

    void openSheet(const char* language = "en") {
        open(Page::report);
        Lang::with(language, [this] { model->setShowWriteUp(true); });
        settle();
    }
    WriteUpSheet* sheet() { return view->window()->findChild<WriteUpSheet*>(); }
    ListingText* box() { return sheet()->findChild<ListingText*>(); }
    std::string text() { return box()->toPlainText().toStdString(); }
    bool onSheet(const char* words) { return shows(sheet(), words); }
    bool pressOnSheet(const char* name) { return clickOn(sheet(), name); }
    bool polish() {
        auto* button = findByName<Button>(sheet(), "Polish Wording");
        return click(button) && QTest::qWaitFor([&] { return button->isEnabled(); }, patience);
    }
    /// The template's own words with another first line: a rewording that changes no fact.
    std::string faithful() {
        return "Hello, here is my Mac.\n" + ListingTemplate::make(model->makeReport(), false).text;
    }
};

} // namespace

TEST_F(WriteUpTests, aFaithfulRewordingIsKeptAndTheSerialNumberGoesBackToTheTemplate) {
    openSheet();
    ASSERT_NE(sheet(), nullptr);
    const std::string asTemplate = text();
    EXPECT_THAT(asTemplate, testing::Not(testing::HasSubstr(Samples::machine().serial.value())));
    controls->wording().setAnswers({{.text = faithful()}});
    ASSERT_TRUE(polish());
    EXPECT_TRUE(onSheet("Reworded on this Mac. Every number and problem matched the report."));
    EXPECT_THAT(text(), testing::StartsWith("Hello, here is my Mac."));
    EXPECT_TRUE(pressOnSheet("Copy"));
    EXPECT_THAT(controls->pasteboardText().value_or(""), testing::StartsWith("Hello"));
    EXPECT_EQ(model->message(), "Copied. Read it once more before you post.");
    controls->wording().setAnswers({{.text = "The model is busy.", .fails = true}});
    ASSERT_TRUE(polish());
    EXPECT_TRUE(onSheet("Couldn't polish the wording: The model is busy."));
    EXPECT_THAT(text(), testing::StartsWith("Hello, here is my Mac.")) << "the earlier one stays";
    EXPECT_TRUE(pressOnSheet("Template"));
    EXPECT_EQ(text(), asTemplate);

    EXPECT_TRUE(pressOnSheet("Include the serial number"));
    EXPECT_THAT(text(), testing::HasSubstr("Serial number: " + Samples::machine().serial.value()));
    EXPECT_FALSE(onSheet("Polished")) << "a rewording belongs to one template text";
    EXPECT_FALSE(onSheet("Couldn't polish the wording: The model is busy."));
}

TEST_F(WriteUpTests, anUnfaithfulRewordingIsThrownAwayWithAtMostFiveReasons) {
    openSheet();
    const std::string asTemplate = text();
    controls->wording().setAnswers({{.text = "A perfect Mac in mint condition, like new, 99 % battery."}});
    ASSERT_TRUE(polish());
    EXPECT_EQ(text(), asTemplate);
    EXPECT_TRUE(onSheet("The reworded version was thrown away, so the template stays:"));
    EXPECT_TRUE(onSheet("• It left out or changed “MacBook Air (M2, 2022)”."));
    EXPECT_EQ(shownTexts(sheet()).filter("• ").size(), 5);
}

TEST_F(WriteUpTests, anOutcomeIsANotificationAndWorkingShowsAMarkOfItsOwn) {
    openSheet();
    const auto working = [this] { return sheet()->findChild<BusyMark*>()->isVisible(); };
    EXPECT_FALSE(working());
    controls->wording().setAnswers(
        {{.text = "The model is busy.", .fails = true, .takes = std::chrono::milliseconds(50)}});
    EXPECT_TRUE(pressOnSheet("Polish Wording"));
    EXPECT_TRUE(working());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !working(); }, patience));
    auto* outcome = findByName<QWidget>(sheet(), "Couldn't polish the wording: The model is busy.");
    ASSERT_NE(outcome, nullptr);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(outcome)->role(), QAccessible::Notification);
}

TEST_F(WriteUpTests, aRewordingOfAnotherTemplateTextIsDropped) {
    openSheet();
    controls->wording().setAnswers({{.text = faithful(), .waits = true}});
    EXPECT_TRUE(pressOnSheet("Polish Wording"));
    EXPECT_TRUE(onSheet("Polishing on this Mac…"));
    EXPECT_TRUE(pressOnSheet("Include the serial number"));
    controls->wording().release();
    QTest::qWait(50);
    EXPECT_FALSE(onSheet("Polished"));
    EXPECT_THAT(text(), testing::HasSubstr("Serial number: "));
}

TEST_F(WriteUpTests, longReasonsLeaveTheButtonsInTheSheet) {
    const auto manyWords = [](const std::string& word) {
        std::string words;
        for (int i = 0; i < 3000; ++i)
            words += word + std::to_string(i) + ' ';
        return words;
    };
    model->change([&](SessionState& session) {
        for (const TestID test : {TestID::display, TestID::keyboard, TestID::trackpad, TestID::speakers})
            session.overrides[test].problem = manyWords("dot");
    });
    openSheet();
    view->resize(820, 548);
    for (const bool fails : {false, true}) {
        controls->wording().setAnswers({{.text = manyWords("perfect"), .fails = fails}});
        ASSERT_TRUE(polish());
        settle();
        auto* done = findByName<Button>(sheet(), "Done");
        const QPoint corner = done->mapTo(sheet(), QPoint(done->width(), done->height()));
        EXPECT_LE(corner.y(), sheet()->height() - 20 - 22) << "within the card and its padding";
        EXPECT_EQ(corner.x(), sheet()->width() - 90 - 22) << "at the end of the row";
        EXPECT_GE(box()->height(), 60);
        EXPECT_EQ(box()->viewport()->width(), 640 - 2 * 22) << "no bar beside";
    }
}

TEST_F(WriteUpTests, withoutAModelTheSheetSaysWhy) {
    const std::pair<WordingAvailability, const char*> rows[] = {
        {WordingAvailability::turnedOff, "Apple Intelligence is off."},
        {WordingAvailability::notReady, "Apple's on-device model isn't ready yet"},
        {WordingAvailability::unsupported, "Polish Wording uses Apple Intelligence on this Mac"},
    };
    for (const auto& [availability, reason] : rows) {
        controls->wording().setAvailability(availability);
        openSheet();
        EXPECT_EQ(shownTexts(sheet()).filter(reason).size(), 1) << reason;
        EXPECT_FALSE(pressOnSheet("Polish Wording"));
        EXPECT_TRUE(pressOnSheet("Done"));
        EXPECT_FALSE(model->showWriteUp());
    }
}

TEST_F(WriteUpTests, inSpanishTheSheetAndTheListingAreSpanish) {
    openSheet("es");
    EXPECT_THAT(text(), testing::HasSubstr("Problemas encontrados"));
    EXPECT_FALSE(onSheet("Listing Write-Up") || onSheet("Done"));
    EXPECT_EQ(unnamedControls(sheet()).join("\n"), "");
}

TEST_F(WriteUpTests, theTextShowsThatItHasTheFocus) {
    openSheet();
    box()->setFocus(Qt::TabFocusReason);
    settle();
    const auto* ring = view->window()->findChild<QFocusFrame*>();
    ASSERT_NE(ring, nullptr);
    EXPECT_TRUE(ring->isVisible());
    EXPECT_EQ(ring->widget(), box());
}

TEST_F(WriteUpTests, escClosesTheSheetAndALateAnswerIsDropped) {
    openSheet();
    controls->wording().setAnswers({{.text = faithful(), .waits = true}});
    EXPECT_TRUE(pressOnSheet("Polish Wording"));
    QTest::keyClick(sheet(), Qt::Key_Escape);
    settle();
    EXPECT_FALSE(model->showWriteUp());
    controls->wording().release();
    QTest::qWait(50);
    EXPECT_FALSE(model->message());
}

#include "tests/app/window/WindowFixture.h"

#include "app/controls/GrowingTextField.h"
#include "app/document/ReportPreview.h"
#include "kit/Samples.h"
#include "kit/report/ReportText.h"
#include "tests/TemporaryFolder.h"

#include <QApplication>
#include <QClipboard>
#include <QMenuBar>
#include <QSignalSpy>
#include <ctime>

namespace tessivo::pagetest {

class CommandsTests : public WindowFixture {
protected:
    QAction* item(const QString& text) {
        for (QAction* menu : window().menuBar()->actions())
            for (QAction* each : menu->menu()->actions())
                if (plain(each->text()) == text) return each;
        return nullptr;
    }
    void choose(const char* text) {
        ASSERT_TRUE(item(text)) << text;
        item(text)->trigger();
        settle();
    }
    void pressKeys(Qt::KeyboardModifiers modifiers, Qt::Key key) {
        QWidget* focus = QApplication::focusWidget();
        QTest::keyClick(focus ? focus : &window(), key, modifiers);
        settle();
    }
    static QString plain(QString text) { return text.remove(u'&'); }
};

TEST_F(CommandsTests, theMenusStandInTheirOrder) {
    launch();
    QStringList lines;
    for (QAction* menu : window().menuBar()->actions()) {
        lines << plain(menu->text()) + u':';
        for (QAction* each : menu->menu()->actions())
            lines << (each->isSeparator() ? QStringLiteral("-")
                                          : (plain(each->text()) + u' ' +
                                             each->shortcut().toString(QKeySequence::PortableText))
                                                .trimmed());
    }
    EXPECT_EQ(lines.join(u'\n'),
              "Tessivo:\nAbout Tessivo\nCheck for Updates…\n-\nQuit Tessivo Ctrl+Q\n"
              "File:\nStart Over…\n-\nClose Ctrl+W\n-\nSave Report as PDF… Ctrl+Shift+S\n"
              "Copy Report as Text\n-\nPrint Report… Ctrl+P\n"
              "Go:\nThis Mac Ctrl+1\nKeyboard Ctrl+2\nTrackpad Ctrl+3\nDisplay Ctrl+4\n"
              "Speakers Ctrl+5\nHeadphone jack Ctrl+6\nMicrophones Ctrl+7\nCameras Ctrl+8\n"
              "USB ports Ctrl+9\nEthernet port\nStorage\nBattery\nReport\nCheck at Pickup\n"
              "History\nErase Before Sale\n"
              "Help:\nTessivo Help");
}

TEST_F(CommandsTests, goOpensEveryPage) {
    launch();
    for (const Page page : allCases<Page>()) {
        choose(title(page));
        EXPECT_EQ(model().page(), page);
        EXPECT_TRUE(showsPage(page)) << title(page);
    }
    for (int digit = 9; digit >= 1; --digit) {
        pressKeys(Qt::ControlModifier, Qt::Key(Qt::Key_0 + digit));
        EXPECT_EQ(model().page(), allCases<Page>()[size_t(digit - 1)]);
    }
}

TEST_F(CommandsTests, shortcutsLeaveTypedTextAlone) {
    launch();
    model().setPage(Page::storage);
    settle();
    auto* note = findByName<GrowingTextField>(&window(), "Problem note for Storage");
    ASSERT_TRUE(note);
    const QString typed = "1 2 9 w W p P s S q: 50 % @ home";
    type(note, typed);
    EXPECT_EQ(model().state().overrides.at(TestID::storage).problem, typed.toStdString());
    EXPECT_EQ(model().page(), Page::storage);
    EXPECT_TRUE(dialogs.asked.isEmpty());
    pressKeys(Qt::ControlModifier, Qt::Key_2);
    EXPECT_EQ(model().page(), Page::keyboard);
    EXPECT_EQ(model().state().overrides.at(TestID::storage).problem, typed.toStdString());
}

TEST_F(CommandsTests, aLongNoteOfAnyCharactersIsKeptAndDoesNotSlowAKey) {
    launch();
    model().setPage(Page::storage);
    settle();
    auto* note = findByName<GrowingTextField>(&window(), "Problem note for Storage");
    ASSERT_TRUE(note);
    const QString odd = QString::fromUtf8("\u05D0\u05D1\u05D2 \U0001F4BB\u202E abc \t é\n");
    QApplication::clipboard()->setText(odd + QString(100'000, u'x') + odd);
    note->setFocus(Qt::TabFocusReason);
    note->paste();
    settle();
    EXPECT_EQ(model().state().overrides.at(TestID::storage).problem,
              QApplication::clipboard()->text().toStdString());
    std::vector<double> times;
    for (int i = 0; i < 30; ++i) {
        const double start = processorMilliseconds();
        QTest::keyClick(note, Qt::Key_Y);
        QApplication::processEvents();
        times.push_back(processorMilliseconds() - start);
    }
    std::ranges::sort(times);
    EXPECT_LT(times[times.size() / 2], keyPressLimit);
    EXPECT_EQ(model().state().overrides.at(TestID::storage).problem,
              QApplication::clipboard()->text().toStdString() + std::string(30, 'y'));
}

TEST_F(CommandsTests, startingOverAsksFirst) {
    launch();
    model().setState(Samples::session(model().state().machine));
    model().setNotes("mine");
    model().setPage(Page::report);
    const SessionState before = model().state();
    choose("Start Over…");
    EXPECT_EQ(dialogs.asked.join(u'\n'),
              "Start over? | This clears every result on this Mac. Reports saved to "
              "History stay. | Start Over | Cancel");
    EXPECT_EQ(model().state(), before);
    EXPECT_EQ(model().notes(), "mine");
    EXPECT_EQ(model().page(), Page::report);

    dialogs.confirmAnswer = true;
    controls->setEnrolled(true);
    choose("Start Over…");
    EXPECT_EQ(model().notes(), "");
    EXPECT_EQ(model().state().keyboard, KeyboardTest{});
    EXPECT_TRUE(showsPage(Page::overview));
    ASSERT_TRUE(finishReading());
    settle();
    EXPECT_EQ(accessibleNameOf(row(Page::overview)), "This Mac, Problem");
}

TEST_F(CommandsTests, aSavedPDFGoesIntoHistoryAndACancelledOneDoesNot) {
    launch();
    choose("Save Report as PDF…");
    EXPECT_EQ(dialogs.asked, QStringList{"Condition Report FK2X91TQ7W.pdf"});
    EXPECT_TRUE(model().history().empty());

    const TemporaryFolder folder;
    dialogs.saveAnswer = folder / "report.pdf";
    pressKeys(Qt::ControlModifier | Qt::ShiftModifier, Qt::Key_S);
    EXPECT_EQ(bytesOf(folder / "report.pdf").substr(0, 5), "%PDF-");
    EXPECT_EQ(model().history().size(), 1u);
    EXPECT_EQ(model().message(), "Saved to History.");

    dialogs.asked.clear();
    dialogs.saveAnswer = folder / "missing" / "report.pdf";
    choose("Save Report as PDF…");
    EXPECT_EQ(model().history().size(), 1u);
    EXPECT_EQ(dialogs.asked.size(), 2) << "the failure is told";
}

TEST_F(CommandsTests, aPrintGoesIntoHistoryWhateverBecomesOfIt) {
    launch();
    pressKeys(Qt::ControlModifier, Qt::Key_P);
    EXPECT_EQ(dialogs.asked.size(), 1);
    EXPECT_EQ(model().history().size(), 1u);
    const TemporaryFolder folder;
    dialogs.printAnswer = true;
    dialogs.printFile = folder / "print.pdf";
    choose("Print Report…");
    EXPECT_EQ(bytesOf(folder / "print.pdf").substr(0, 5), "%PDF-");
    EXPECT_EQ(model().history().size(), 2u);
}

TEST_F(CommandsTests, theCopiedTextIsTheReportsAndNothingElseHappens) {
    launch();
    model().setState(Samples::session(model().state().machine));
    model().setNotes(Samples::notes());
    choose("Copy Report as Text");
    EXPECT_EQ(controls->pasteboardText(), ReportText::text(model().makeReport(), {}));
    EXPECT_EQ(model().message(), std::nullopt);
    EXPECT_TRUE(model().history().empty());
    EXPECT_TRUE(dialogs.asked.isEmpty());
}

TEST_F(CommandsTests, onTheReportPageTheyTakeTheReportThatIsShown) {
    launch();
    model().setPage(Page::report);
    settle();
    const ConditionReport shown = *window().findChild<ReportPreview*>()->report();
    clock.advance(std::chrono::minutes(3));
    choose("Copy Report as Text");
    EXPECT_EQ(controls->pasteboardText(), ReportText::text(shown, {}));
    choose("Print Report…");
    EXPECT_EQ(model().history().front(), shown);
    model().setPage(Page::overview);
    settle();
    choose("Print Report…");
    EXPECT_EQ(model().history().front().created, clock.now()) << "elsewhere it is made now";
}

TEST_F(CommandsTests, helpAndAboutAndUpdates) {
    launch();
    choose("Tessivo Help");
    ASSERT_EQ(controls->openedURLs().size(), 1u);
    EXPECT_EQ(controls->openedURLs().front().substr(0, 8), "https://");
    choose("About Tessivo");
    EXPECT_TRUE(dialogs.asked.takeFirst().startsWith("Tessivo " TESSIVO_VERSION));
    choose("Check for Updates…");
    EXPECT_EQ(controls->updateChecks(), 1u);
    controls->setFeedURL("http://127.0.0.1:1/appcast.xml");
    choose("Check for Updates…");
    ASSERT_TRUE(QTest::qWaitFor([this] { return !dialogs.asked.isEmpty(); }, patience));
    EXPECT_TRUE(dialogs.asked.first().startsWith("Couldn’t check for updates | "));
}

TEST_F(CommandsTests, closeAndQuitCloseTheWindow) {
    for (const char* command : {"Close", "Quit Tessivo"}) {
        launch();
        QSignalSpy closed(&window(), &RootView::closed);
        QTimer::singleShot(0, &window(), [&] { item(command)->trigger(); });
        QTimer::singleShot(patience, qApp, [] { QCoreApplication::exit(99); });
        EXPECT_EQ(QApplication::exec(), 0) << command;
        EXPECT_EQ(closed.count(), 1);
    }
}

} // namespace tessivo::pagetest

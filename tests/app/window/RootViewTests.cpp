#include "app/controls/Tile.h"
#include "tests/app/window/WindowFixture.h"

#include "kit/Samples.h"

#include <QApplication>
#include <QSignalSpy>

namespace tessivo::pagetest {

using testing::ElementsAre;

class RootViewTests : public WindowFixture {
protected:
    QStringList rowNames() {
        QStringList names;
        for (auto* each : rows())
            names << accessibleNameOf(each);
        return names;
    }
    void pressKey(Qt::Key key) {
        QTest::keyClick(QApplication::focusWidget(), key);
        settle();
    }
};

TEST_F(RootViewTests, everyRowOpensItsPage) {
    launch();
    for (auto* each : rows()) {
        ASSERT_TRUE(click(each));
        EXPECT_EQ(title(*model().page()), each->title());
        EXPECT_TRUE(showsPage(*model().page())) << qPrintable(each->title());
        EXPECT_EQ(selected(), QStringList{each->title()});
    }
    EXPECT_EQ(model().page(), Page::handover);
}

TEST_F(RootViewTests, arrowsWalkTheRowsAndTabGoesOnIntoThePage) {
    launch();
    EXPECT_FALSE(dynamic_cast<SidebarRow*>(QApplication::focusWidget())) << "nothing has the focus at first";
    QTest::keyClick(&window(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), row(Page::overview));
    pressKey(Qt::Key_Down);
    EXPECT_EQ(model().page(), Page::keyboard);
    EXPECT_EQ(QApplication::focusWidget(), row(Page::keyboard));
    pressKey(Qt::Key_Up);
    pressKey(Qt::Key_Up);
    EXPECT_EQ(model().page(), Page::overview);
    pressKey(Qt::Key_End);
    EXPECT_EQ(model().page(), Page::handover);
    pressKey(Qt::Key_Down);
    EXPECT_EQ(model().page(), Page::handover);
    pressKey(Qt::Key_Home);
    EXPECT_EQ(model().page(), Page::overview);
    pressKey(Qt::Key_Tab);
    EXPECT_TRUE(window().pageView()->isAncestorOf(QApplication::focusWidget()));
}

TEST_F(RootViewTests, aPageOpenedFromATileByKeyLeavesTheFocusAtItsRow) {
    launch();
    auto* tile = window().findChild<Tile*>();
    ASSERT_TRUE(tile);
    tile->setFocus(Qt::TabFocusReason);
    QTest::keyClick(tile, Qt::Key_Return);
    settle();
    EXPECT_EQ(model().page(), Page::keyboard);
    EXPECT_EQ(QApplication::focusWidget(), row(Page::keyboard));
}

TEST_F(RootViewTests, theSidebarNamesEveryPageWithItsStatusAsItComes) {
    launch();
    model().setState(SessionState(model().state().machine, clock.now()));
    EXPECT_EQ(
        rowNames().join(QStringLiteral("; ")),
        "This Mac, Check by hand; Keyboard, Not run; Trackpad, Not run; Display, Not run; Speakers, Not run; "
        "Headphone jack, Not run; Microphones, Not run; Cameras, Not run; USB ports, Not run; Storage, "
        "Works; "
        "Battery, Not run; Report; Check at Pickup; History; Erase Before Sale");
    answer([](SessionState& s) { s.overrides[TestID::cameras].problem = "cracked"; });
    EXPECT_EQ(accessibleNameOf(row(Page::cameras)), "Cameras, Problem");
}

TEST_F(RootViewTests, theProgressIsReadAsOneElement) {
    const auto progress = [&](const char* words) {
        QWidget* foot =
            findNamed(&window(), words, [](QWidget* widget) { return accessibleValueOf(widget).isEmpty(); });
        if (!foot) return false;
        auto* interface = QAccessible::queryAccessibleInterface(foot);
        return interface->childCount() == 0 && shows(&window(), words);
    };
    launch();
    EXPECT_TRUE(progress("4 of 13 done"));
    answer([](SessionState& s) { s.activationLock = ActivationLockAnswer::disabled; });
    EXPECT_TRUE(progress("5 of 13 done"));
    model().setState(Samples::session(model().state().machine));
    settle();
    EXPECT_TRUE(progress("13 of 13 done"));

    useMachine("mac-mini-m4");
    launch();
    EXPECT_TRUE(shows(&window(), "4 of 14 done"));
    EXPECT_TRUE(row(Page::ethernet));
}

TEST_F(RootViewTests, aClearedSelectionShowsThisMac) {
    launch();
    ASSERT_TRUE(click(row(Page::trackpad)));
    QTest::mouseClick(row(Page::trackpad), Qt::LeftButton, Qt::ControlModifier);
    settle();
    EXPECT_EQ(model().page(), std::nullopt);
    EXPECT_TRUE(showsPage(Page::overview));
    EXPECT_EQ(selected(), QStringList());
    const QWidget* shown = window().pageView();
    ASSERT_TRUE(click(row(Page::overview)));
    EXPECT_EQ(selected(), QStringList{"This Mac"});
    EXPECT_EQ(window().pageView(), shown) << "the same page isn't made anew";
}

TEST_F(RootViewTests, aPageThatIsLeftIsGone) {
    launch();
    for (const Page page : allCases<Page>()) {
        model().setPage(page);
        const QPointer<QWidget> left = window().pageView();
        settle();
        model().setPage(page == Page::report ? Page::overview : Page::report);
        EXPECT_FALSE(left->isVisible());
        settle();
        EXPECT_FALSE(left) << title(page);
    }
    // Nothing of any page waits for its next turn; the save is the session's own.
    model().setPage(Page::handover);
    settle();
    clock.advance(std::chrono::seconds(2));
    EXPECT_EQ(clock.pending(), 0u);
}

TEST_F(RootViewTests, aLaptopsEthernetPageCanBeOpenedWithoutARow) {
    launch();
    EXPECT_FALSE(row(Page::ethernet));
    model().setPage(Page::ethernet);
    settle();
    EXPECT_TRUE(showsPage(Page::ethernet));
    EXPECT_EQ(selected(), QStringList());
    answer([](SessionState& s) { s.machine.modelID = "Mac16,10"; });
    EXPECT_EQ(selected(), QStringList{"Ethernet port"});
}

TEST_F(RootViewTests, aLaunchReadsWhatIsMissingAndOnlyThat) {
    start();
    EXPECT_FALSE(model().state().battery) << "not before the window is there";
    launch();
    EXPECT_TRUE(model().state().battery->present);
    EXPECT_TRUE(model().state().enrollmentChecked);
    EXPECT_EQ(controls->enrollmentRuns(), 1u);
    model().persist();

    controls->removeBattery();
    controls->setEnrolled(true);
    launch();
    EXPECT_TRUE(model().state().battery->present);
    EXPECT_FALSE(model().state().enrollment->isManaged());
    EXPECT_EQ(controls->enrollmentRuns(), 1u);
    window().hide();
    window().show();
    settle();
    EXPECT_EQ(controls->enrollmentRuns(), 1u);
    ASSERT_TRUE(clickOn(&window(), "Read Again"));
    ASSERT_TRUE(finishReading());
    EXPECT_TRUE(model().state().enrollment->isManaged());
}

TEST_F(RootViewTests, closingTheWindowQuitsAndStoresAtOnce) {
    launch();
    model().setNotes("typed a moment ago");
    QTimer::singleShot(0, &window(), [this] { window().close(); });
    QTimer::singleShot(patience, qApp, [] { QCoreApplication::exit(99); });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_EQ(mac->defaults().text("notes"), "typed a moment ago");
    EXPECT_EQ(SessionState::decode(*mac->defaults().data("session")), model().state());
}

TEST_F(RootViewTests, theWindowIsAsLargeAsTold) {
    launch();
    EXPECT_EQ(window().windowTitle(), "Tessivo");
    EXPECT_EQ(row(Page::overview)->parentWidget()->width() + 21, 230);
    showAt(window(), window().minimumSize());
    EXPECT_EQ(window().size(), QSize(820, 548));
    EXPECT_EQ(window().pageView()->size(), QSize(620, 520));
}

TEST_F(RootViewTests, nothingIsClippedAtTheSmallestSizeOrWithALargeFont) {
    for (const double points : {10.0, 24.0}) {
        const DesktopLook look(points);
        launch();
        showAt(window(), window().minimumSize());
        for (const Page page : allCases<Page>()) {
            model().setPage(page);
            settle();
            EXPECT_EQ(clippedControls(window().pageView()), QStringList()) << title(page) << " at " << points;
        }
        for (auto* each : rows())
            EXPECT_GE(each->width(), each->sizeHint().width())
                << qPrintable(each->title()) << " at " << points;
        end();
    }
}

TEST_F(RootViewTests, everyControlOnEveryPageHasAName) {
    for (const char* machine : {"macbook-air-m2", "mac-mini-m4", "all-readings-fail"}) {
        useMachine(machine);
        launch();
        for (const Page page : allCases<Page>()) {
            model().setPage(page);
            settle();
            EXPECT_EQ(unnamedControls(&window()), QStringList()) << machine << ", " << title(page);
        }
        model().setState(Samples::session(model().state().machine));
        model().saveToHistory(model().makeReport());
        for (const Page page : allCases<Page>()) {
            model().setPage(page);
            settle();
            EXPECT_EQ(unnamedControls(&window()), QStringList()) << machine << ", full, " << title(page);
        }
    }
}

} // namespace tessivo::pagetest

#include "app/controls/Button.h"
#include "app/controls/GrowingTextField.h"
#include "app/pages/frame/AnswerButtons.h"
#include "app/pages/keyboard/KeyboardDiagram.h"
#include "tests/app/pages/InputPages.h"

#include <QDialog>
#include <QLineEdit>

namespace tessivo::pagetest {
namespace {

class KeyboardPageTest : public InputFixture {
protected:
    void SetUp() override {
        InputFixture::SetUp();
        open(Page::keyboard);
        note = findByName<GrowingTextField>(view.get(), QStringLiteral("Problem note for Keyboard"));
        ASSERT_TRUE(note);
    }
    const KeyboardTest& keyboard() const { return state().keyboard; }
    void start() { ASSERT_TRUE(press("Start")); }
    bool runs() { return has("Stop") && shown("Testing keys. Press Esc twice to stop."); }
    void type(quint32 scanCode) { strike(scanCode, view.get()); }

    GrowingTextField* note = nullptr;
};

TEST_F(KeyboardPageTest, aRunCountsKeysAndEndsWithTwoEsc) {
    EXPECT_TRUE(has("Keyboard diagram, 0 of 77 keys tested"));
    EXPECT_FALSE(shown("Testing keys. Press Esc twice to stop."));
    type(Scan::a);
    EXPECT_THAT(keyboard().pressed, IsEmpty()) << "not started";
    start();
    EXPECT_TRUE(runs() && has("A, not tested"));
    type(Scan::a);
    EXPECT_TRUE(has("A, tested") && shown("1 of 77 keys"));
    for (const quint32 key : {Scan::escape, Scan::a, Scan::escape})
        type(key);
    EXPECT_TRUE(runs());
    type(Scan::escape);
    EXPECT_TRUE(!runs() && has("Start") && has("Keyboard diagram, 2 of 77 keys tested"));
    EXPECT_THAT(keyboard().pressed, UnorderedElementsAre(0, 53));
}

TEST_F(KeyboardPageTest, aKeyHeldPastTheEndStaysSwallowedUntilItComesUp) {
    start();
    send(QEvent::KeyPress, Scan::a, note);
    ASSERT_TRUE(press("Stop"));
    send(QEvent::KeyPress, Scan::a, note, true);
    send(QEvent::KeyRelease, Scan::a, note);
    EXPECT_EQ(note->text(), QString());
    send(QEvent::KeyPress, Scan::a, note);
    EXPECT_EQ(note->text(), QStringLiteral("a")) << "the program has its keys back";
}

TEST_F(KeyboardPageTest, aDialogOfTheProgramGetsItsKeysAndTheRunWaits) {
    start();
    QDialog dialog(view.get());
    QLineEdit name(&dialog);
    dialog.open();
    strike(Scan::a, &name);
    EXPECT_EQ(name.text(), QStringLiteral("a"));
    EXPECT_THAT(keyboard().pressed, IsEmpty());
    dialog.close();
    type(Scan::a);
    EXPECT_TRUE(runs());
    EXPECT_THAT(keyboard().pressed, ElementsAre(0));
}

TEST_F(KeyboardPageTest, noInputMethodTakesPartInARun) {
    const auto takesPart = [this] {
        QInputMethodQueryEvent query(Qt::ImEnabled);
        QApplication::sendEvent(note, &query);
        return query.value(Qt::ImEnabled).toBool();
    };
    const auto commit = [this] {
        QInputMethodEvent event;
        event.setCommitString(QStringLiteral("é"));
        QApplication::sendEvent(note, &event);
        return note->text();
    };
    EXPECT_TRUE(takesPart());
    start();
    note->setFocus();
    EXPECT_FALSE(takesPart()) << "a dead key would never be seen";
    EXPECT_EQ(commit(), QString());
    ASSERT_TRUE(press("Stop"));
    EXPECT_TRUE(takesPart());
    EXPECT_EQ(commit(), QStringLiteral("é"));
}

TEST_F(KeyboardPageTest, theLayoutDecidesTheTwoSwappedKeys) {
    start();
    type(Scan::leftOfOne);
    EXPECT_THAT(keyboard().pressed, ElementsAre(50));
    Q_EMIT picker("Layout")->activated(1);
    EXPECT_EQ(keyboard().layout, KeyboardLayout::ID::iso);
    EXPECT_TRUE(shown("1 of 78 keys")) << "pressed keys stay";
    type(Scan::leftOfOne);
    EXPECT_TRUE(has("§, tested") && has("return, not tested"));
    EXPECT_THAT(keyboard().pressed, ElementsAre(10, 50));
}

TEST_F(KeyboardPageTest, keysOffTheDiagramAreCountedApart) {
    start();
    type(Scan::keypadSeven);
    EXPECT_TRUE(shown("Also pressed: 1 key that aren't on this diagram (a keypad, or another layout)."));
    for (const quint32 key : {Scan::keypadSeven + 1, Scan::unknown, 0u})
        type(key);
    EXPECT_TRUE(shown("Also pressed: 2 keys that aren't on this diagram (a keypad, or another layout)."));
    EXPECT_TRUE(shown("0 of 77 keys"));
    EXPECT_EQ(keyboard().pressed.size(), 2u) << "what has no code is ignored";
}

TEST_F(KeyboardPageTest, clickingTicksByHandExceptDuringARun) {
    ASSERT_TRUE(press("fn, not tested"));
    EXPECT_TRUE(has("fn, ticked by hand"));
    ASSERT_TRUE(press("space, not tested"));
    ASSERT_TRUE(press("space, ticked by hand"));
    ASSERT_TRUE(press("Touch ID, checked by hand below"));
    start();
    ASSERT_TRUE(press("A, not tested"));
    EXPECT_THAT(keyboard().handChecked, ElementsAre(63));
}

TEST_F(KeyboardPageTest, clearEmptiesTheDiagramAndTheRunGoesOn) {
    auto* clear = findByName<Button>(view.get(), QStringLiteral("Clear"));
    EXPECT_FALSE(clear->isEnabled());
    Q_EMIT picker("Layout")->activated(1);
    start();
    type(Scan::a);
    ASSERT_TRUE(press("Clear"));
    EXPECT_EQ(keyboard().layout, KeyboardLayout::ID::iso);
    EXPECT_TRUE(shown("0 of 78 keys") && !clear->isEnabled() && runs());
    type(Scan::a);
    EXPECT_TRUE(has("A, tested"));
}

TEST_F(KeyboardPageTest, leavingThePageEndsTheRun) {
    start();
    view->hide();
    view->show();
    EXPECT_TRUE(!runs() && has("Start"));
    start();
    close();
    QWidget other;
    showAt(other, QSize(100, 100));
    QKeyEvent press(QEvent::KeyPress, Qt::Key_A, {}, Scan::a, 0, 0);
    EXPECT_FALSE(QApplication::sendEvent(&other, &press) && press.isAccepted());
    EXPECT_THAT(keyboard().pressed, IsEmpty());
}

TEST_F(KeyboardPageTest, aReleaseAndAPressOfOneTimeAreAHeldKey) {
    start();
    const auto sendAt = [this](QEvent::Type type, quint64 time) {
        QKeyEvent event(type, Qt::Key_Escape, {}, Scan::escape, 0, 0);
        event.setTimestamp(time);
        QApplication::sendEvent(view.get(), &event);
    };
    sendAt(QEvent::KeyPress, 100);
    for (const quint64 time : {700U, 730U, 760U}) {
        sendAt(QEvent::KeyRelease, time);
        sendAt(QEvent::KeyPress, time);
    }
    EXPECT_TRUE(runs());
    sendAt(QEvent::KeyRelease, 800);
    sendAt(QEvent::KeyPress, 900);
    EXPECT_FALSE(runs()) << "Esc twice ends the run";
}

TEST_F(KeyboardPageTest, handChecksAreAnsweredAndTakenBack) {
    const auto answer = [this] {
        auto* answers = findByName<AnswerButtons>(view.get(), QStringLiteral("Touch ID or power key"));
        return click(findByName<Button>(answers, QStringLiteral("Not on this keyboard")));
    };
    ASSERT_TRUE(answer());
    EXPECT_EQ(keyboard().answer("touchID"), ManualAnswer::notPresent);
    EXPECT_TRUE(shown("0 of 77 keys; 2 checks by hand left"));
    ASSERT_TRUE(answer());
    EXPECT_TRUE(shown("Not run"));
}

/// Counts the paint events below a widget.
class PaintCount final : public QObject {
public:
    explicit PaintCount(QWidget* root) {
        for (QWidget* each : root->findChildren<QWidget*>())
            each->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++count;
        return false;
    }
    int count = 0;
};

TEST_F(KeyboardPageTest, aKeyRepaintsOnlyTheKeysThatChangedAndSavesOnlyOnce) {
    start();
    type(Scan::leftOfOne);
    settle();
    PaintCount paints(view->findChild<KeyboardDiagram*>());
    type(Scan::a);
    settle();
    EXPECT_EQ(paints.count, 2) << "the key that flashes and the one that did";
    pass(std::chrono::seconds(2));
    const auto writes = controls->defaultsWrites();
    type(Scan::a);
    pass(std::chrono::seconds(2));
    EXPECT_EQ(controls->defaultsWrites(), writes);
}

TEST_F(KeyboardPageTest, theDiagramIsOneTabStopAndArrowsWalkIt) {
    int stops = 0;
    for (QWidget* key : view->findChild<KeyboardDiagram*>()->findChildren<QWidget*>())
        stops += (key->focusPolicy() & Qt::TabFocus) ? 1 : 0;
    EXPECT_EQ(stops, 1);
    findByName<QWidget>(view.get(), QStringLiteral("F1, not tested"))->setFocus();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Space})
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, {});
            QApplication::sendEvent(QApplication::focusWidget(), &event);
        }
    EXPECT_THAT(keyboard().handChecked, ElementsAre(20))
        << accessibleNameOf(QApplication::focusWidget()).toStdString();
}

} // namespace
} // namespace tessivo::pagetest

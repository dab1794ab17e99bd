#include "app/controls/AnswerButtons.h"
#include "app/controls/Button.h"
#include "app/controls/GrowingTextField.h"
#include "app/pages/keyboard/KeyboardDiagram.h"
#include "tests/app/pages/input/InputPages.h"

#include <QAction>
#include <QMenuBar>
#include <QVBoxLayout>

namespace tessivo::pagetest {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

class KeyboardPageTest : public InputFixture {
protected:
    void SetUp() override {
        InputFixture::SetUp();
        open(Page::keyboard);
    }
    const KeyboardTest& keyboard() const { return state().keyboard; }
    bool has(const char* name) { return findByName<QWidget>(view.get(), QString::fromUtf8(name)); }
    void start() { ASSERT_TRUE(press("Start")); }
    bool runs() { return has("Stop") && shown("Testing keys. Press Esc twice to stop."); }
    void type(quint32 scanCode) { strike(scanCode, view.get()); }
};

TEST_F(KeyboardPageTest, aRunCountsKeysAndEndsWithTwoEsc) {
    EXPECT_TRUE(shown("0 of 77 keys"));
    EXPECT_TRUE(has("Keyboard diagram, 0 of 77 keys tested"));
    EXPECT_FALSE(shown("Testing keys. Press Esc twice to stop."));
    type(Scan::a);
    EXPECT_THAT(keyboard().pressed, IsEmpty()) << "not started";

    start();
    EXPECT_TRUE(runs());
    EXPECT_TRUE(has("A, not tested"));
    type(Scan::a);
    EXPECT_TRUE(has("A, tested"));
    EXPECT_TRUE(shown("1 of 77 keys"));
    type(Scan::escape);
    type(Scan::a);
    type(Scan::escape);
    EXPECT_TRUE(runs());
    type(Scan::escape);
    EXPECT_FALSE(runs());
    EXPECT_TRUE(has("Start"));
    EXPECT_THAT(keyboard().pressed, UnorderedElementsAre(0, 53));
    EXPECT_TRUE(has("Keyboard diagram, 2 of 77 keys tested"));
}

TEST_F(KeyboardPageTest, theRunSwallowsMenusShortcutsAndTyping) {
    QWidget window;
    QMenuBar menus(&window);
    QMenu* menu = menus.addMenu(QStringLiteral("&File"));
    int quits = 0;
    QAction* quit = menu->addAction(QStringLiteral("Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), &window,
                                    [&quits] { ++quits; });
    window.addAction(quit);
    auto* layout = new QVBoxLayout(&window);
    layout->addWidget(view.get());
    showAt(window, QSize(980, 760));
    auto* note = findByName<GrowingTextField>(view.get(), QStringLiteral("Problem note for Keyboard"));
    ASSERT_TRUE(note);

    start();
    for (const Qt::Key key : {Qt::Key_Q, Qt::Key_Tab, Qt::Key_Return, Qt::Key_Alt, Qt::Key_A}) {
        for (QWidget* target : {static_cast<QWidget*>(note), &window}) {
            QKeyEvent override(QEvent::ShortcutOverride, key, Qt::ControlModifier, Scan::q, 0, 0);
            override.ignore();
            QApplication::sendEvent(target, &override);
            EXPECT_TRUE(override.isAccepted()) << "or the shortcut map would have it";
            QKeyEvent down(QEvent::KeyPress, key, Qt::ControlModifier, Scan::q, 0, 0, QStringLiteral("q"));
            QApplication::sendEvent(target, &down);
            QKeyEvent up(QEvent::KeyRelease, key, Qt::ControlModifier, Scan::q, 0, 0);
            QApplication::sendEvent(target, &up);
        }
    }
    EXPECT_EQ(quits, 0);
    EXPECT_EQ(note->text(), QString());
    EXPECT_TRUE(runs());
    EXPECT_THAT(keyboard().pressed, ElementsAre(12));

    ASSERT_TRUE(press("Stop"));
    QKeyEvent down(QEvent::KeyPress, Qt::Key_Q, {}, Scan::q, 0, 0, QStringLiteral("q"));
    QApplication::sendEvent(note, &down);
    EXPECT_EQ(note->text(), QStringLiteral("q")) << "the program has its keys back";
    view->setParent(nullptr);
}

TEST_F(KeyboardPageTest, aKeyHeldPastTheEndStaysSwallowedUntilItComesUp) {
    auto* note = findByName<GrowingTextField>(view.get(), QStringLiteral("Problem note for Keyboard"));
    ASSERT_TRUE(note);
    start();
    const auto key = [&](QEvent::Type type, bool repeat) {
        QKeyEvent event(type, Qt::Key_A, {}, Scan::a, 0, 0, QStringLiteral("a"), repeat);
        QApplication::sendEvent(note, &event);
    };
    key(QEvent::KeyPress, false);
    key(QEvent::KeyPress, true);
    ASSERT_TRUE(press("Stop"));
    key(QEvent::KeyPress, true);
    key(QEvent::KeyRelease, false);
    EXPECT_EQ(note->text(), QString());
    key(QEvent::KeyPress, false);
    EXPECT_EQ(note->text(), QStringLiteral("a"));
}

TEST_F(KeyboardPageTest, noInputMethodTakesPartInARun) {
    auto* note = findByName<GrowingTextField>(view.get(), QStringLiteral("Problem note for Keyboard"));
    ASSERT_TRUE(note);
    const auto takesPart = [note] {
        QInputMethodQueryEvent query(Qt::ImEnabled);
        QApplication::sendEvent(note, &query);
        return query.value(Qt::ImEnabled).toBool();
    };
    const auto commit = [note](const char* text) {
        QInputMethodEvent event;
        event.setCommitString(QString::fromUtf8(text));
        QApplication::sendEvent(note, &event);
    };
    EXPECT_TRUE(takesPart());
    start();
    note->setFocus();
    EXPECT_FALSE(takesPart()) << "a dead key would never be seen";
    commit("é");
    EXPECT_EQ(note->text(), QString());
    ASSERT_TRUE(press("Stop"));
    EXPECT_TRUE(takesPart());
    commit("é");
    EXPECT_EQ(note->text(), QStringLiteral("é"));
}

TEST_F(KeyboardPageTest, theLayoutDecidesTheTwoSwappedKeys) {
    start();
    type(Scan::leftOfOne);
    EXPECT_THAT(keyboard().pressed, ElementsAre(50));
    auto* layout = picker("Layout");
    ASSERT_TRUE(layout);
    Q_EMIT layout->activated(1);
    EXPECT_EQ(keyboard().layout, KeyboardLayout::ID::iso);
    EXPECT_TRUE(shown("1 of 78 keys")) << "pressed keys stay";
    type(Scan::leftOfOne);
    EXPECT_TRUE(has("§, tested"));
    EXPECT_TRUE(has("return, not tested"));
    EXPECT_THAT(keyboard().pressed, ElementsAre(10, 50));
}

TEST_F(KeyboardPageTest, keysOffTheDiagramAreCountedApart) {
    start();
    type(Scan::keypadSeven);
    EXPECT_TRUE(shown("Also pressed: 1 key that aren't on this diagram (a keypad, or another layout)."));
    type(Scan::keypadSeven + 1);
    EXPECT_TRUE(shown("Also pressed: 2 keys that aren't on this diagram (a keypad, or another layout)."));
    type(Scan::unknown);
    type(0);
    EXPECT_TRUE(shown("0 of 77 keys"));
    EXPECT_EQ(keyboard().pressed.size(), 2u) << "what has no code is ignored";
}

TEST_F(KeyboardPageTest, clickingTicksByHandExceptDuringARun) {
    ASSERT_TRUE(press("fn, not tested"));
    EXPECT_TRUE(has("fn, ticked by hand"));
    EXPECT_THAT(keyboard().handChecked, ElementsAre(63));
    ASSERT_TRUE(press("space, not tested"));
    ASSERT_TRUE(press("space, ticked by hand"));
    EXPECT_TRUE(has("space, not tested"));
    ASSERT_TRUE(press("Touch ID, checked by hand below"));
    EXPECT_THAT(keyboard().handChecked, ElementsAre(63));
    start();
    ASSERT_TRUE(press("A, not tested"));
    EXPECT_THAT(keyboard().handChecked, ElementsAre(63));
}

TEST_F(KeyboardPageTest, clearEmptiesTheDiagramAndTheRunGoesOn) {
    auto* clear = findByName<Button>(view.get(), QStringLiteral("Clear"));
    ASSERT_TRUE(clear);
    EXPECT_FALSE(clear->isEnabled());
    Q_EMIT picker("Layout")->activated(1);
    start();
    type(Scan::a);
    ASSERT_TRUE(clear->isEnabled());
    ASSERT_TRUE(press("Clear"));
    EXPECT_EQ(keyboard().layout, KeyboardLayout::ID::iso);
    EXPECT_TRUE(shown("0 of 78 keys"));
    EXPECT_TRUE(runs());
    type(Scan::a);
    EXPECT_TRUE(has("A, tested"));
}

TEST_F(KeyboardPageTest, leavingThePageEndsTheRun) {
    start();
    view->hide();
    view->show();
    EXPECT_FALSE(runs());
    EXPECT_TRUE(has("Start"));
    start();
    close();
    QWidget other;
    showAt(other, QSize(100, 100));
    QKeyEvent press(QEvent::KeyPress, Qt::Key_A, {}, Scan::a, 0, 0);
    EXPECT_FALSE(QApplication::sendEvent(&other, &press) && press.isAccepted());
    EXPECT_THAT(keyboard().pressed, IsEmpty());
}

TEST_F(KeyboardPageTest, handChecksAreAnsweredAndTakenBack) {
    auto* answers = findByName<AnswerButtons>(view.get(), QStringLiteral("Touch ID or power key"));
    ASSERT_TRUE(answers);
    ASSERT_TRUE(click(findByName<Button>(answers, QStringLiteral("Not on this keyboard"))));
    EXPECT_EQ(keyboard().answer("touchID"), ManualAnswer::notPresent);
    EXPECT_TRUE(shown("0 of 77 keys; 2 checks by hand left"));
    ASSERT_TRUE(click(findByName<Button>(answers, QStringLiteral("Not on this keyboard"))));
    EXPECT_EQ(keyboard().answer("touchID"), ManualAnswer::unanswered);
    EXPECT_TRUE(shown("Not run"));
}

TEST_F(KeyboardPageTest, aKeySeenBeforeSavesNothing) {
    start();
    type(Scan::a);
    pass(std::chrono::seconds(2));
    const auto writes = controls->defaultsWrites();
    type(Scan::a);
    pass(std::chrono::seconds(2));
    EXPECT_EQ(controls->defaultsWrites(), writes);
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

TEST_F(KeyboardPageTest, aKeyRepaintsOnlyTheKeysThatChanged) {
    start();
    type(Scan::q);
    settle();
    auto* diagram =
        findByName<KeyboardDiagram>(view.get(), QStringLiteral("Keyboard diagram, 1 of 77 keys tested"));
    ASSERT_TRUE(diagram);
    const auto keys = diagram->findChildren<QWidget*>();
    PaintCount paints(diagram);
    type(Scan::a);
    settle();
    EXPECT_EQ(paints.count, 2) << "the key that flashes and the one that did";
    EXPECT_EQ(diagram->findChildren<QWidget*>(), keys);
}

TEST_F(KeyboardPageTest, theDiagramIsOneTabStopAndArrowsWalkIt) {
    auto* diagram =
        findByName<KeyboardDiagram>(view.get(), QStringLiteral("Keyboard diagram, 0 of 77 keys tested"));
    int stops = 0;
    for (QWidget* key : diagram->findChildren<QWidget*>())
        stops += (key->focusPolicy() & Qt::TabFocus) ? 1 : 0;
    EXPECT_EQ(stops, 1);
    auto* first = findByName<QWidget>(view.get(), QStringLiteral("F1, not tested"));
    first->setFocus();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Space}) {
        QKeyEvent press(QEvent::KeyPress, key, {});
        QApplication::sendEvent(QApplication::focusWidget(), &press);
        QKeyEvent release(QEvent::KeyRelease, key, {});
        QApplication::sendEvent(QApplication::focusWidget(), &release);
    }
    EXPECT_THAT(keyboard().handChecked, ElementsAre(20))
        << accessibleNameOf(QApplication::focusWidget()).toStdString();
}

} // namespace
} // namespace tessivo::pagetest

#include "platform/qt/QtKeyEvents.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QWindow>
#include <gmock/gmock.h>

namespace tessivo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr quint32 scanOfA = 38, scanOfShift = 50, scanOfGrave = 49, scanOfNoKey = 250;
constexpr KeyCode a = 0, shift = 56;

using Told = std::pair<KeyMark, KeyCode>;
const Told pressed{KeyMark::press, a}, held{KeyMark::repeat, a}, released{KeyMark::release, a};

/// A window of the program, which notes the keys that reach it.
class Window final : public QWindow {
public:
    std::vector<QEvent::Type> seen;

protected:
    void keyPressEvent(QKeyEvent* event) override { seen.push_back(event->type()); }
    void keyReleaseEvent(QKeyEvent* event) override { seen.push_back(event->type()); }
};

class QtKeyEventsTest : public ::testing::Test {
protected:
    void listen() {
        events.start(
            [this](KeyMark mark, KeyCode code) {
                told.push_back({mark, code});
                if (stops) events.stop();
                return takes;
            },
            [this] { return layout; });
    }
    bool send(QEvent::Type type, quint32 scanCode, bool repeats = false, quint64 time = 0) {
        QKeyEvent event(type, Qt::Key_Q, Qt::ControlModifier, scanCode, 0, 0, {}, repeats);
        event.setTimestamp(time);
        event.ignore();
        QCoreApplication::sendEvent(&window, &event);
        return event.isAccepted();
    }
    void down(quint32 scanCode, bool repeats = false) { send(QEvent::KeyPress, scanCode, repeats); }
    void up(quint32 scanCode) { send(QEvent::KeyRelease, scanCode); }

    QtKeyEvents events;
    Window window;
    KeyboardLayout::ID layout = KeyboardLayout::ID::ansi;
    bool takes = true, stops = false;
    std::vector<Told> told;
};

TEST_F(QtKeyEventsTest, tellsPressesRepeatsReleasesAndModifiersAndKeepsThemFromTheProgram) {
    down(scanOfA);
    EXPECT_THAT(window.seen, ElementsAre(QEvent::KeyPress)) << "nobody listens yet";
    up(scanOfA);
    window.seen.clear();
    listen();
    EXPECT_TRUE(send(QEvent::ShortcutOverride, scanOfA)) << "or the press would be a menu's";
    EXPECT_THAT(told, IsEmpty());
    down(scanOfA);
    down(scanOfA, true);
    up(scanOfA);
    down(scanOfShift);
    up(scanOfShift);
    down(scanOfNoKey);
    EXPECT_THAT(told, ElementsAre(pressed, held, released, Told{KeyMark::modifierChange, shift},
                                  Told{KeyMark::modifierChange, shift}));
    EXPECT_THAT(window.seen, IsEmpty());
}

TEST_F(QtKeyEventsTest, aReleaseAndAPressOfOneTimeAreARepeat) {
    listen();
    send(QEvent::KeyPress, scanOfA, false, 10);
    send(QEvent::KeyRelease, scanOfA, false, 500);
    send(QEvent::KeyPress, scanOfA, false, 500);
    send(QEvent::KeyRelease, scanOfA, false, 600);
    send(QEvent::KeyPress, scanOfA, false, 700);
    EXPECT_THAT(told, ElementsAre(pressed, released, held, released, pressed));
}

TEST_F(QtKeyEventsTest, aKeyThatWentDownBeforeTheEndIsKeptUntilItComesUp) {
    listen();
    stops = true;
    down(scanOfA);
    down(scanOfA, true);
    up(scanOfA);
    EXPECT_THAT(told, ElementsAre(pressed)) << "the listener stopped itself";
    EXPECT_THAT(window.seen, IsEmpty());
    down(scanOfA);
    EXPECT_THAT(window.seen, ElementsAre(QEvent::KeyPress));
}

TEST_F(QtKeyEventsTest, whatTheListenerLeavesIsTheProgramsAndALaterListenerTakesItsPlace) {
    listen();
    takes = false;
    down(scanOfA);
    up(scanOfA);
    EXPECT_THAT(window.seen, ElementsAre(QEvent::KeyPress, QEvent::KeyRelease));
    int others = 0;
    events.start([&](KeyMark, KeyCode) { return ++others > 0; }, [] { return KeyboardLayout::ID::ansi; });
    down(scanOfA);
    EXPECT_EQ(others, 1);
    EXPECT_EQ(told.size(), 2u);
}

TEST_F(QtKeyEventsTest, aDialogOfTheProgramHasItsKeys) {
    listen();
    Window dialog;
    dialog.setModality(Qt::ApplicationModal);
    dialog.show();
    down(scanOfA);
    EXPECT_THAT(told, IsEmpty());
    dialog.hide();
    down(scanOfA);
    EXPECT_THAT(told, ElementsAre(pressed));
    dialog.show();
    up(scanOfA);
    EXPECT_THAT(told, ElementsAre(pressed)) << "kept, and not told";
    EXPECT_THAT(window.seen, ElementsAre(QEvent::KeyPress));
}

TEST_F(QtKeyEventsTest, theLayoutIsAskedAtEachKey) {
    listen();
    down(scanOfGrave);
    layout = KeyboardLayout::ID::iso;
    down(scanOfGrave);
    EXPECT_THAT(told, ElementsAre(Told{KeyMark::press, 50}, Told{KeyMark::press, 10}));
}

TEST_F(QtKeyEventsTest, noInputMethodTakesPart) {
    const auto takesPart = [this] {
        QInputMethodQueryEvent query(Qt::ImEnabled);
        query.setValue(Qt::ImEnabled, true);
        QCoreApplication::sendEvent(&window, &query);
        return query.value(Qt::ImEnabled).toBool();
    };
    EXPECT_TRUE(takesPart());
    listen();
    EXPECT_FALSE(takesPart());
    events.stop();
    EXPECT_TRUE(takesPart());
}

} // namespace
} // namespace tessivo

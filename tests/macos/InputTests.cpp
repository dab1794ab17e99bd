#include "platform/macos/MacFingerTouches.h"
#include "platform/macos/MacKeyEvents.h"
#include "tests/macos/Cocoa.h"
#include "tests/macos/MacFixture.h"

#include <QGuiApplication>
#include <QWindow>

namespace tessivo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using Kind = MacKeyEvent::Kind;
using enum KeyMark;

constexpr KeyCode a = 0, q = 12, esc = 53, leftShift = 56, capsLock = 57, rightShift = 60, fn = 63;
constexpr std::uint64_t shiftFlag = 1u << 17, leftBit = 2, rightBit = 4, fnFlag = 1u << 23,
                        lockFlag = 1u << 16;

class MacKeys : public Mac {
protected:
    MacKeys() {
        StandInCocoa::reset();
        listen();
    }

    void listen(bool takes = true) {
        const auto listener = [this, takes](KeyMark mark, KeyCode code) {
            told.emplace_back(mark, code);
            return takes;
        };
        keys.start(listener, nullptr);
    }
    /// Whether the program is kept from it.
    bool key(Kind kind, KeyCode code, bool isRepeat = false) {
        return StandInCocoa::shared().keys(
            {.kind = kind, .code = code, .isRepeat = isRepeat, .inKeyWindow = true});
    }
    bool flags(KeyCode code, std::uint64_t flags) {
        return StandInCocoa::shared().keys(
            {.kind = Kind::flagsChanged, .code = code, .modifierFlags = flags, .inKeyWindow = true});
    }

    std::vector<std::pair<KeyMark, KeyCode>> told;
    MacKeyEvents keys;
};

TEST_F(MacKeys, areToldAsTheyComeAndKept) {
    EXPECT_TRUE(key(Kind::down, q)); // with Command too: menus see nothing of it
    EXPECT_TRUE(key(Kind::down, q, true));
    EXPECT_TRUE(key(Kind::up, q));
    EXPECT_THAT(told, ElementsAre(Pair(press, q), Pair(repeat, q), Pair(release, q)));
}

TEST_F(MacKeys, thatWentDownInARunAreKeptPastItsEnd) {
    EXPECT_TRUE(key(Kind::down, esc));
    EXPECT_TRUE(flags(leftShift, shiftFlag | leftBit));
    keys.stop();
    told.clear();
    EXPECT_TRUE(key(Kind::down, esc, true));
    EXPECT_FALSE(key(Kind::down, a));
    EXPECT_TRUE(key(Kind::up, esc));
    EXPECT_TRUE(flags(leftShift, 0));
    EXPECT_FALSE(key(Kind::up, a));
    EXPECT_FALSE(key(Kind::down, esc));
    EXPECT_FALSE(flags(leftShift, shiftFlag | leftBit));
    EXPECT_THAT(told, IsEmpty());
    // A release that happened elsewhere is never seen; the next press is the program's.
    listen();
    EXPECT_TRUE(key(Kind::down, a));
    keys.stop();
    EXPECT_FALSE(key(Kind::down, a));
    EXPECT_FALSE(key(Kind::up, a));
}

TEST_F(MacKeys, thatTellOfStateGiveOneMarkEachTime) {
    // The right one goes while the left one, held since before the run, keeps the flag.
    EXPECT_TRUE(flags(rightShift, shiftFlag | leftBit | rightBit));
    EXPECT_TRUE(flags(rightShift, shiftFlag | leftBit));
    EXPECT_TRUE(flags(fn, fnFlag));
    EXPECT_TRUE(flags(capsLock, lockFlag)); // one event a press: nothing to be kept
    keys.stop();
    EXPECT_TRUE(flags(fn, 0));
    EXPECT_FALSE(flags(rightShift, shiftFlag | rightBit));
    EXPECT_FALSE(flags(capsLock, 0));
    // No modifier's code at all: the flags changed elsewhere.
    listen();
    EXPECT_FALSE(flags(a, shiftFlag));
    EXPECT_THAT(told, ElementsAre(Pair(modifierChange, rightShift), Pair(modifierChange, rightShift),
                                  Pair(modifierChange, fn), Pair(modifierChange, capsLock)));
}

TEST_F(MacKeys, areTheProgramsWhileItsOwnWindowWaits) {
    const auto send = [&](bool inKeyWindow, bool inDialog) {
        return StandInCocoa::shared().keys(
            {.kind = Kind::down, .code = a, .inKeyWindow = inKeyWindow, .inDialog = inDialog});
    };
    EXPECT_FALSE(send(false, false));
    EXPECT_FALSE(send(true, true));
    QWindow dialog;
    dialog.setModality(Qt::ApplicationModal);
    dialog.show();
    EXPECT_FALSE(send(true, false));
    dialog.hide();
    EXPECT_THAT(told, IsEmpty());
    EXPECT_TRUE(send(true, false));
    // What a listener doesn't want is the program's, its release too.
    listen(false);
    EXPECT_FALSE(key(Kind::down, q));
    EXPECT_FALSE(key(Kind::up, q));
}

TEST_F(MacKeys, mayEndTheRunThatTheyAreToldIn) {
    keys.start(
        [&](KeyMark mark, KeyCode code) {
            told.emplace_back(mark, code);
            keys.stop();
            return true;
        },
        nullptr);
    EXPECT_TRUE(key(Kind::down, esc));
    EXPECT_TRUE(key(Kind::up, esc));
    EXPECT_FALSE(key(Kind::down, esc));
    EXPECT_EQ(told.size(), 1u);
}

class MacTouches : public Mac {
protected:
    MacTouches() { StandInCocoa::reset(); }

    StandInCocoa& cocoa = StandInCocoa::shared();
};

TEST_F(MacTouches, areToldOfTheSurfacesPlaceAlone) {
    MacFingerTouches touches;
    EXPECT_FALSE(touches.tellsOfEveryWindow());
    touches.place({1, 2, 3, 4}); // nobody listens
    touches.start(nullptr, {});
    EXPECT_EQ(cocoa.touches, nullptr);
    std::vector<FingerPosition> down;
    std::vector<Gesture> gestures;
    QWindow window;
    touches.start(&window, {.touches = [&](const auto& now) { down = now; },
                            .gesture =
                                [&](Gesture gesture) {
                                    gestures.push_back(gesture);
                                    touches.stop(); // may end what calls it
                                }});
    ASSERT_NE(cocoa.touches, nullptr);
    EXPECT_EQ(cocoa.touches->window, &window);
    touches.place({10, 20, 300, 200});
    EXPECT_EQ(cocoa.touches->place, QRect(10, 20, 300, 200));
    const auto view = cocoa.touches;
    view->handlers.touches({{0.25, 0.75, 7}});
    EXPECT_THAT(down, ElementsAre(FingerPosition{0.25, 0.75}));
    EXPECT_FALSE(view->handlers.pointer({.kind = MacPointerEvent::Kind::scroll}));
    EXPECT_TRUE(view->handlers.pointer({.kind = MacPointerEvent::Kind::magnify}));
    EXPECT_THAT(gestures, ElementsAre(Gesture::zoom));
    EXPECT_EQ(cocoa.touches, nullptr);
    touches.start(&window, {});
    cocoa.touches->handlers.touches({});
    EXPECT_TRUE(cocoa.touches->handlers.pointer({}));
}

TEST_F(MacTouches, areGesturesByWhatTheSystemSays) {
    using Kind = MacPointerEvent::Kind;
    const std::pair<MacPointerEvent, std::optional<Gesture>> rows[] = {
        {{.kind = Kind::mouseDown}, Gesture::click},
        {{.kind = Kind::mouseDown, .hasControl = true}, Gesture::secondary},
        {{.kind = Kind::rightMouseDown}, Gesture::secondary},
        {{.kind = Kind::pressure, .stage = 1}, std::nullopt},
        {{.kind = Kind::pressure, .stage = 2}, Gesture::force},
        {{.kind = Kind::scroll, .isPrecise = true, .isInAPhase = true}, Gesture::scroll},
        {{.kind = Kind::scroll, .isInAPhase = true}, std::nullopt}, // a plain wheel
        {{.kind = Kind::scroll, .isPrecise = true}, std::nullopt},
        {{.kind = Kind::magnify}, Gesture::zoom},
    };
    for (const auto& [event, gesture] : rows)
        EXPECT_EQ(MacFingerTouches::gesture(event), gesture);
}

} // namespace
} // namespace tessivo

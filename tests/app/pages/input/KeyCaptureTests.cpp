#include "app/pages/keyboard/KeyCapture.h"

#include <gmock/gmock.h>

namespace tessivo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr KeyCode esc = 53, a = 0, shift = 56;

class KeyCaptureTest : public ::testing::Test {
protected:
    void start() {
        capture.start([this](KeyCode code) { seen.push_back(code); });
    }
    void press(KeyCode code) {
        capture.handle(KeyMark::press, code);
        capture.handle(KeyMark::release, code);
    }

    int changes = 0;
    KeyCapture capture{[this] { ++changes; }};
    std::vector<KeyCode> seen;
};

TEST_F(KeyCaptureTest, aHeldKeyCountsOnceAndDoesNotFlash) {
    start();
    capture.handle(KeyMark::press, a);
    press(esc);
    capture.handle(KeyMark::repeat, a);
    capture.handle(KeyMark::release, a);
    EXPECT_THAT(seen, ElementsAre(a, esc));
    EXPECT_EQ(capture.flash(), esc);
    press(esc);
    EXPECT_FALSE(capture.running()) << "a repeat between two Esc is no key between them";
}

TEST_F(KeyCaptureTest, aModifierCountsAtItsPressAndAtItsRelease) {
    start();
    press(esc);
    capture.handle(KeyMark::modifierChange, shift);
    EXPECT_EQ(capture.flash(), shift);
    press(a);
    capture.handle(KeyMark::modifierChange, shift);
    EXPECT_THAT(seen, ElementsAre(esc, shift, a, shift));
    EXPECT_EQ(capture.flash(), shift);
}

TEST_F(KeyCaptureTest, onlyTwoEscInARowStop) {
    start();
    press(esc);
    press(a);
    press(esc);
    capture.handle(KeyMark::modifierChange, shift);
    press(esc);
    EXPECT_TRUE(capture.running());
    press(esc);
    EXPECT_FALSE(capture.running());
    EXPECT_EQ(capture.flash(), std::nullopt);
    EXPECT_THAT(seen, ElementsAre(esc, a, esc, shift, esc, esc)) << "the stopping Esc is recorded";
}

TEST_F(KeyCaptureTest, aRunBeginsWithoutTheKeysOfTheLast) {
    press(a);
    EXPECT_THAT(seen, IsEmpty()) << "nothing runs yet";
    start();
    press(esc);
    capture.stop();
    start();
    press(esc);
    EXPECT_TRUE(capture.running());
    // A start while running is none: the handler and the last key stay.
    capture.start([](KeyCode) { FAIL(); });
    press(esc);
    EXPECT_FALSE(capture.running());
}

TEST_F(KeyCaptureTest, itTellsChangesOnly) {
    start();
    press(a);
    EXPECT_EQ(changes, 2);
    press(a);
    capture.handle(KeyMark::repeat, a);
    EXPECT_EQ(changes, 2) << "the same key flashes already";
    capture.stop();
    capture.stop();
    EXPECT_EQ(changes, 3);
}

TEST_F(KeyCaptureTest, whoIsToldOfAKeyMayStop) {
    capture.start([this](KeyCode) { capture.stop(); });
    press(a);
    EXPECT_FALSE(capture.running());
    EXPECT_EQ(capture.flash(), std::nullopt);
}

TEST(KeyCapture, everyModifierOfTheDiagramsIsOne) {
    for (const auto* layout : {&KeyboardLayout::ansi(), &KeyboardLayout::iso()})
        for (const KeySpec& key : layout->testableKeys())
            EXPECT_EQ(KeyCapture::isModifier(*key.code), key.kind == KeyKind::modifier) << key.id;
}

} // namespace
} // namespace tessivo

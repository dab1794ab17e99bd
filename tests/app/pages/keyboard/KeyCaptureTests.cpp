#include "app/pages/keyboard/KeyCapture.h"

#include <gmock/gmock.h>

namespace tessivo {
namespace {

constexpr KeyCode esc = 53, a = 0, shift = 56;
constexpr auto down = KeyMark::press, up = KeyMark::release, held = KeyMark::repeat,
               turned = KeyMark::modifierChange;

TEST(KeyCapture, countsKeysAndEndsWithTwoEscInARow) {
    const struct {
        const char* what;
        std::vector<std::pair<KeyMark, KeyCode>> events;
        std::vector<KeyCode> seen;
        bool running;
        std::optional<KeyCode> flash;
    } rows[] = {
        {"held", {{down, a}, {down, esc}, {held, a}, {up, a}}, {a, esc}, true, esc},
        {"same key", {{down, a}, {up, a}, {down, a}}, {a, a}, true, a},
        {"modifier", {{turned, shift}, {down, a}, {turned, shift}}, {shift, a, shift}, true, shift},
        {"two Esc", {{down, esc}, {up, esc}, {down, esc}, {down, a}}, {esc, esc}, false, {}},
        {"repeat between", {{down, esc}, {held, a}, {up, a}, {down, esc}}, {esc, esc}, false, {}},
        {"key between", {{down, esc}, {down, a}, {down, esc}}, {esc, a, esc}, true, esc},
        {"modifier between", {{down, esc}, {turned, shift}, {down, esc}}, {esc, shift, esc}, true, esc}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        int changes = 0;
        std::vector<KeyCode> seen;
        KeyCapture capture([&changes] { ++changes; });
        capture.handle(down, a); // nothing runs yet
        capture.start([&](KeyCode code) {
            seen.push_back(code);
            EXPECT_EQ(capture.flash(), code) << "what is told is shown at once";
        });
        for (const auto& [mark, code] : row.events)
            capture.handle(mark, code);
        EXPECT_EQ(seen, row.seen);
        EXPECT_EQ(capture.running(), row.running);
        EXPECT_EQ(capture.flash(), row.flash);
        EXPECT_EQ(changes, row.running ? 1 : 2) << "the start, and the end";
    }
}

TEST(KeyCapture, aRunBeginsWithoutTheKeysOfTheLastAndMayEndFromItsHandler) {
    KeyCapture capture;
    capture.start([](KeyCode) {});
    capture.handle(down, esc);
    capture.stop();
    capture.start([](KeyCode) {});
    capture.handle(down, esc);
    EXPECT_TRUE(capture.running());
    // A start while running is none: the handler and the last key stay.
    capture.start([](KeyCode) { FAIL(); });
    capture.handle(down, esc);
    EXPECT_FALSE(capture.running());
    capture.start([&capture](KeyCode) { capture.stop(); });
    capture.handle(down, a);
    EXPECT_FALSE(capture.running());
    EXPECT_EQ(capture.flash(), std::nullopt);
}

} // namespace
} // namespace tessivo

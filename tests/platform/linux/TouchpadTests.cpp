#include "platform/linux/TouchpadDecoder.h"
#include "platform/linux/TouchpadGestures.h"

#include <fstream>
#include <gmock/gmock.h>
#include <limits>
#include <linux/input.h>
#include <sstream>

namespace tessivo {

void PrintTo(const FingerPosition& finger, std::ostream* out) {
    *out << "(" << finger.x << ", " << finger.y << ")";
}

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Fingers = std::vector<FingerPosition>;

/// A stream of tests/data/touchpads.
struct Stream {
    TouchpadDecoder::Range x, y;
    std::size_t slots = 0;
    std::vector<input_event> events;

    explicit Stream(const std::string& name) {
        std::ifstream file(TESSIVO_TEST_DATA "/touchpads/" + name + ".evemu");
        std::string line;
        while (std::getline(file, line)) {
            std::istringstream words(line);
            std::string kind, time;
            words >> kind >> std::hex;
            if (kind == "A:") {
                int axis = 0;
                TouchpadDecoder::Range range;
                words >> axis >> std::dec >> range.minimum >> range.maximum;
                if (axis == ABS_MT_POSITION_X) x = range;
                if (axis == ABS_MT_POSITION_Y) y = range;
                if (axis == ABS_MT_SLOT) slots = std::size_t(range.maximum) + 1;
            } else if (kind == "E:") {
                input_event event{};
                words >> time >> event.type >> event.code >> std::dec >> event.value;
                events.push_back(event);
            }
        }
        EXPECT_FALSE(events.empty()) << name;
    }

    TouchpadDecoder decoder() const { return TouchpadDecoder(x, y, slots); }
    /// The fingers after each report.
    std::vector<Fingers> reports() const {
        TouchpadDecoder decoding = decoder();
        std::vector<Fingers> reports;
        for (const input_event& event : events)
            if (decoding.handle(event)) reports.push_back(decoding.fingers());
        return reports;
    }
};

input_event event(int type, int code, int value) {
    input_event event{};
    event.type = std::uint16_t(type);
    event.code = std::uint16_t(code);
    event.value = value;
    return event;
}

TEST(TouchpadDecoder, tellsEachFingerOfEachReport) {
    const FingerPosition first{0.1, 0.1}, second{0.9, 0.9};
    const Fingers five{first, second, second, second, second}; // those it can't place stand at the last
    const std::pair<const char*, std::vector<Fingers>> rows[] = {
        {"two-slots", {{{0, 0.5}}, {{0.25, 0.5}}, {{0.25, 0.5}, {1, 1}}, {{1, 0}}, {{0.5, 0.5}, {1, 0}}, {}}},
        {"another-range", {{{0, 0}, {1, 1}, {3806.0 / 7612, 2532.0 / 5065}, {1, 0}}}},
        {"more-fingers-than-slots", {{first, second}, five, five, five, {}, {}}},
        {"lost-events", {{{0.1, 0.2}}, {}, {}, {{0.3, 0.4}}}}, // half a place is none
        {"hovering-finger", {{}, {{0.5, 0.5}}, {}}}};
    for (const auto& [stream, reports] : rows)
        EXPECT_EQ(Stream(stream).reports(), reports) << stream;
}

TEST(TouchpadDecoder, goesOnFromTheKernelsState) {
    const Stream stream("lost-events");
    TouchpadDecoder decoder = stream.decoder();
    decoder.handle(event(EV_SYN, SYN_DROPPED, 0));
    decoder.resync({{-1, 0, 0}, {2, 70, 60}, {3, 1, 1}}, 1, 1);
    EXPECT_THAT(decoder.fingers(), ElementsAre(FingerPosition{0.7, 0.6})) << "a slot too many is passed over";
    decoder.handle(event(EV_ABS, ABS_MT_POSITION_X, 80));
    EXPECT_TRUE(decoder.handle(event(EV_SYN, SYN_REPORT, 0)));
    EXPECT_THAT(decoder.fingers(), ElementsAre(FingerPosition{0.8, 0.6}));
}

TEST(TouchpadDecoder, anEmptyRangeAndForeignEventsGiveNoFingers) {
    TouchpadDecoder decoder({5, 5}, {0, 10}, 2);
    for (const auto& each : Stream("two-slots").events)
        decoder.handle(each);
    EXPECT_THAT(decoder.fingers(), IsEmpty());

    TouchpadDecoder sane({0, 10}, {0, 10}, 2);
    constexpr int extreme = std::numeric_limits<int>::max();
    for (const int type : {EV_REL, EV_MSC, EV_KEY, EV_ABS, 0x1f})
        for (const int code : {0, int(ABS_MT_SLOT), int(BTN_TOOL_FINGER), 0xffff})
            for (const int value : {-extreme, -1, 0, 1, extreme})
                sane.handle(event(type, code, value));
    sane.handle(event(EV_SYN, SYN_REPORT, 0));
    EXPECT_THAT(sane.fingers(), IsEmpty());
}

/// What the gestures told over these reports.
std::vector<std::string> words(const std::vector<Fingers>& reports) {
    TouchpadGestures gestures;
    std::vector<std::string> told;
    for (const Fingers& fingers : reports)
        if (const auto word = gestures.handle(fingers)) told.push_back(*word);
    return told;
}

TEST(TouchpadGestures, tellScrollFromPinch) {
    std::vector<Fingers> scroll, pinch, one, rest, three, hop;
    for (int i = 0; i <= 20; ++i) {
        const double way = i * 0.02;
        scroll.push_back({{0.4, 0.2 + way}, {0.6, 0.2 + way}});
        pinch.push_back({{0.4 - way / 2, 0.5}, {0.6 + way / 2, 0.5}});
        one.push_back({{0.4, 0.2 + way}});
        rest.push_back({{0.4, 0.2 + way / 20}, {0.6, 0.2}});
        three.push_back({{0.2, 0.2 + way}, {0.4, 0.2 + way}, {0.6, 0.2 + way}});
        // A finger that lifts while another comes down elsewhere is no movement.
        hop.push_back({{i % 2 ? 0.1 : 0.6, 0.2}, {0.6, 0.8}});
    }
    EXPECT_THAT(words(scroll), ElementsAre("scroll")) << "once while the fingers stay";
    EXPECT_THAT(words(pinch), ElementsAre("zoom"));
    for (const auto& reports : {one, rest, three, hop})
        EXPECT_THAT(words(reports), IsEmpty());
    std::vector<Fingers> twice = scroll;
    twice.push_back({});
    twice.insert(twice.end(), scroll.begin(), scroll.end());
    EXPECT_THAT(words(twice), ElementsAre("scroll", "scroll"));
}

} // namespace
} // namespace tessivo

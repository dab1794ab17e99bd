#include "platform/linux/TouchpadGestures.h"

#include <gmock/gmock.h>

namespace tessivo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Fingers = std::vector<FingerPosition>;

/// What the gestures told over these reports.
std::vector<Gesture> gestures(const std::vector<Fingers>& reports) {
    TouchpadGestures telling;
    std::vector<Gesture> told;
    for (const Fingers& fingers : reports)
        if (const auto gesture = telling.handle(fingers)) told.push_back(*gesture);
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
    EXPECT_THAT(gestures(scroll), ElementsAre(Gesture::scroll)) << "once while the fingers stay";
    EXPECT_THAT(gestures(pinch), ElementsAre(Gesture::zoom));
    for (const auto& reports : {one, rest, three, hop})
        EXPECT_THAT(gestures(reports), IsEmpty());
    std::vector<Fingers> twice = scroll;
    twice.push_back({});
    twice.insert(twice.end(), scroll.begin(), scroll.end());
    EXPECT_THAT(gestures(twice), ElementsAre(Gesture::scroll, Gesture::scroll));
}

} // namespace
} // namespace tessivo

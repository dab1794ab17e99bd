#include "app/pages/keyboard/KeyboardGeometry.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace tessivo {
namespace {

const KeyboardLayout* const layouts[] = {&KeyboardLayout::ansi(), &KeyboardLayout::iso()};

std::size_t indexOf(const KeyboardGeometry& geometry, const std::string& id) {
    const auto found = std::ranges::find(geometry.places, id, [](const auto& place) { return place.key.id; });
    return std::size_t(found - geometry.places.begin());
}

QRectF rectOf(const KeyboardGeometry& geometry, const std::string& id) {
    return geometry.places.at(indexOf(geometry, id)).rect;
}

TEST(KeyboardGeometry, everyKeyHasOnePlaceOfItsOwnInsideTheDiagram) {
    for (const auto* layout : layouts) {
        const auto geometry = KeyboardGeometry::make(*layout, 900, 5);
        ASSERT_EQ(geometry.places.size(), layout->keys().size());
        const QRectF whole(0, 0, 900, KeyboardGeometry::heightFor(900));
        for (std::size_t i = 0; i < geometry.places.size(); ++i) {
            EXPECT_EQ(geometry.places[i].key, layout->keys()[i]);
            EXPECT_TRUE(whole.contains(geometry.places[i].bounds())) << geometry.places[i].key.id;
            for (std::size_t other = 0; other < i; ++other)
                EXPECT_FALSE(geometry.places[i].rect.intersects(geometry.places[other].rect))
                    << geometry.places[i].key.id << " over " << geometry.places[other].key.id;
        }
    }
}

TEST(KeyboardGeometry, rowsAndWidthsFollowTheUnit) {
    // 900 wide: a unit of 60, half a gap of 2 free on each side.
    const auto geometry = KeyboardGeometry::make(KeyboardLayout::ansi(), 900, 4);
    const struct {
        const char* id;
        QRectF rect;
    } cases[] = {
        {"esc", {2, 2, 116, 33.2}},       {"touchID", {842, 2, 56, 33.2}},   {"grave", {2, 39.2, 56, 56}},
        {"delete", {782, 39.2, 116, 56}}, {"return", {767, 159.2, 131, 56}}, {"space", {257, 279.2, 326, 56}},
        {"up", {782, 279.2, 56, 27}},     {"down", {782, 308.2, 56, 27}},
    };
    for (const auto& [id, rect] : cases) {
        const QRectF is = rectOf(geometry, id);
        EXPECT_TRUE(std::abs(is.x() - rect.x()) < 1e-9 && std::abs(is.y() - rect.y()) < 1e-9 &&
                    std::abs(is.width() - rect.width()) < 1e-9 &&
                    std::abs(is.height() - rect.height()) < 1e-9)
            << id << " " << is.x() << " " << is.y() << " " << is.width() << " " << is.height();
    }
    EXPECT_DOUBLE_EQ(KeyboardGeometry::heightFor(900), 337.2);
}

TEST(KeyboardGeometry, theTallReturnKeyIsOnePlaceWithTwoHalves) {
    const auto geometry = KeyboardGeometry::make(KeyboardLayout::iso(), 900, 4);
    const auto& place = geometry.places.at(indexOf(geometry, "return"));
    EXPECT_EQ(place.rect, QRectF(812, 99.2, 86, 56));
    EXPECT_EQ(place.lower.left(), 827);
    EXPECT_DOUBLE_EQ(place.lower.bottom(), 215.2);
    EXPECT_FALSE(place.lower.intersects(rectOf(geometry, "backslash")));
    const auto ansi = KeyboardGeometry::make(KeyboardLayout::ansi(), 900, 4);
    EXPECT_TRUE(std::ranges::all_of(ansi.places, [](const auto& each) { return each.lower.isNull(); }));
}

TEST(KeyboardGeometry, noWidthGivesNoNegativeKeys) {
    for (const double width : {0.0, 1.0, 30.0, 16'000.0})
        for (const auto& place : KeyboardGeometry::make(KeyboardLayout::iso(), width, 5).places)
            EXPECT_TRUE(place.rect.width() >= 0 && place.rect.height() >= 0) << place.key.id << " " << width;
}

TEST(KeyboardGeometry, arrowsGoToTheKeyBeside) {
    using enum KeyboardGeometry::Direction;
    const struct {
        const char* from;
        KeyboardGeometry::Direction direction;
        const char* to;
    } cases[] = {
        {"esc", right, "f1"},
        {"f1", left, "esc"},
        {"esc", left, "esc"},
        {"touchID", right, "touchID"},
        {"esc", up, "esc"},
        {"fn", down, "fn"},
        {"q", down, "a"},
        {"w", up, "2"},
        {"v", down, "space"},
        {"space", up, "b"},
        {"rshift", down, "up"},
        {"up", down, "down"},
        {"down", up, "up"},
        {"down", right, "right"},
        {"left", right, "up"},
        {"right", up, "rshift"},
        {"delete", down, "backslash"},
    };
    const auto geometry = KeyboardGeometry::make(KeyboardLayout::ansi(), 860, 5);
    for (const auto& [from, direction, to] : cases)
        EXPECT_EQ(geometry.places[geometry.neighbour(indexOf(geometry, from), direction)].key.id, to)
            << from << " " << int(direction);
}

TEST(KeyboardGeometry, arrowsReachEveryKey) {
    using enum KeyboardGeometry::Direction;
    for (const auto* layout : layouts) {
        const auto geometry = KeyboardGeometry::make(*layout, 860, 5);
        std::set<std::size_t> reached = {0};
        std::vector<std::size_t> open = {0};
        while (!open.empty()) {
            const std::size_t place = open.back();
            open.pop_back();
            for (const auto direction : {left, right, up, down})
                if (const auto next = geometry.neighbour(place, direction); reached.insert(next).second)
                    open.push_back(next);
        }
        EXPECT_EQ(reached.size(), geometry.places.size());
    }
}

} // namespace
} // namespace tessivo

#include "app/pages/keyboard/KeyboardGeometry.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

using enum KeyboardGeometry::Direction;
const KeyboardLayout* const layouts[] = {&KeyboardLayout::ansi(), &KeyboardLayout::iso()};

std::size_t indexOf(const KeyboardGeometry& geometry, const std::string& id) {
    const auto found = std::ranges::find(geometry.places, id, [](const auto& place) { return place.key.id; });
    return std::size_t(found - geometry.places.begin());
}

TEST(KeyboardGeometry, everyKeyHasOnePlaceOfItsOwnInsideTheDiagram) {
    for (const auto* layout : layouts)
        for (const double width : {0.0, 1.0, 30.0, 900.0, 16'000.0}) {
            const auto geometry = KeyboardGeometry::make(*layout, width, 5);
            ASSERT_EQ(geometry.places.size(), layout->keys().size());
            const QRectF whole(0, 0, width, KeyboardGeometry::heightFor(width) + 1e-9);
            for (std::size_t i = 0; i < geometry.places.size(); ++i) {
                const auto& [key, rect, lower] = geometry.places[i];
                EXPECT_EQ(key, layout->keys()[i]);
                EXPECT_TRUE(rect.width() >= 0 && rect.height() >= 0) << key.id << " " << width;
                if (width < 900) continue;
                EXPECT_TRUE(whole.contains(geometry.places[i].bounds())) << key.id;
                for (std::size_t other = 0; other < geometry.places.size(); ++other)
                    EXPECT_FALSE(i != other && (rect.intersects(geometry.places[other].rect) ||
                                                lower.intersects(geometry.places[other].rect)))
                        << key.id << " over " << geometry.places[other].key.id;
            }
        }
}

TEST(KeyboardGeometry, rowsAndWidthsFollowTheUnit) {
    // 900 wide: a unit of 60, half a gap of 2 free on each side.
    const auto ansi = KeyboardGeometry::make(KeyboardLayout::ansi(), 900, 4);
    const struct {
        const char* id;
        QRectF rect;
    } cases[] = {{"esc", {2, 2, 116, 33.2}},       {"touchID", {842, 2, 56, 33.2}},
                 {"delete", {782, 39.2, 116, 56}}, {"return", {767, 159.2, 131, 56}},
                 {"up", {782, 279.2, 56, 27}},     {"down", {782, 308.2, 56, 27}}};
    for (const auto& [id, rect] : cases)
        EXPECT_EQ(ansi.places.at(indexOf(ansi, id)).rect, rect) << id;
    const auto iso = KeyboardGeometry::make(KeyboardLayout::iso(), 900, 4);
    const auto& tall = iso.places.at(indexOf(iso, "return"));
    EXPECT_EQ(tall.rect, QRectF(812, 99.2, 86, 56));
    EXPECT_EQ(tall.lower.left(), 827);
    EXPECT_DOUBLE_EQ(tall.lower.bottom(), 215.2);
}

TEST(KeyboardGeometry, arrowsGoToTheKeyBeside) {
    const struct {
        const char* from;
        KeyboardGeometry::Direction direction;
        const char* to;
    } cases[] = {{"esc", right, "f1"},     {"f1", left, "esc"},    {"esc", left, "esc"},
                 {"fn", down, "fn"},       {"q", down, "a"},       {"w", up, "2"},
                 {"space", up, "b"},       {"rshift", down, "up"}, {"up", down, "down"},
                 {"down", right, "right"}, {"left", right, "up"},  {"right", up, "rshift"},
                 {"esc", up, "esc"},       {"v", down, "space"},   {"delete", down, "backslash"}};
    const auto geometry = KeyboardGeometry::make(KeyboardLayout::ansi(), 860, 5);
    for (const auto& [from, direction, to] : cases)
        EXPECT_EQ(geometry.places[geometry.neighbour(indexOf(geometry, from), direction)].key.id, to)
            << from << " " << int(direction);
}

TEST(KeyboardGeometry, arrowsReachEveryKey) {
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

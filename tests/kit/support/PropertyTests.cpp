#include "kit/support/PropertyJson.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

TEST(Property, looksAreTypedAndNeverGuess) {
    const PropertyMap map = {{"flag", true},  {"zero", 0},      {"count", 7},     {"fraction", -2.9},
                             {"huge", 1e300}, {"edge", 0x1p63}, {"low", -0x1p62}, {"nan", std::nan("")},
                             {"text", "42"},  {"empty", {}}};
    EXPECT_EQ(integer(map, "count"), 7);
    EXPECT_EQ(integer(map, "fraction"), -2);
    EXPECT_EQ(integer(map, "low"), -(std::int64_t{1} << 62));
    for (const char* key : {"huge", "edge", "nan", "text", "flag", "empty", "missing"})
        EXPECT_EQ(integer(map, key), std::nullopt) << key;
    EXPECT_EQ(boolean(map, "flag"), true);
    EXPECT_EQ(boolean(map, "zero"), false);
    EXPECT_EQ(boolean(map, "fraction"), true);
    for (const char* key : {"text", "empty", "missing"})
        EXPECT_EQ(boolean(map, key), std::nullopt) << key;
    EXPECT_EQ(text(map, "text"), "42");
    for (const char* key : {"flag", "count", "fraction", "empty", "missing"})
        EXPECT_EQ(text(map, key), std::nullopt) << key;
}

TEST(PropertyJson, keepsEveryTypeThroughAFile) {
    const PropertyMap map = {
        {"CycleCount", 88},
        {"least", std::numeric_limits<std::int64_t>::min()},
        {"whole double", 3.0},
        {"negative zero", -0.0},
        {"large", 1e20},
        {"small", 5e-324},
        {"flag", false},
        {"none", {}},
        {"text", std::string("a\0\n\"é", 6)},
        {"", PropertyList{PropertyMap{}, PropertyList{}, PropertyMap{{"deep", PropertyList{1, 2.5}}}}},
    };
    EXPECT_EQ(parsePropertyMap(prettyText(map)), map);
    EXPECT_EQ(prettyText({{"b", 1}, {"a", PropertyList{true, 3.0}}}),
              "{\n  \"a\": [\n    true,\n    3.0\n  ],\n  \"b\": 1\n}\n");
    EXPECT_EQ(prettyText({}), "{}\n");
    EXPECT_EQ(parsePropertyMap(prettyText({{"nan", std::nan("")}})), (PropertyMap{{"nan", {}}}));
}

} // namespace
} // namespace tessivo

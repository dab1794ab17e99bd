#include "kit/catalog/Boards.h"
#include "kit/catalog/SpecCatalog.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

using namespace std::string_literals;

std::string read(const std::string& property) {
    const auto compatible = Boards::entries(property);
    return Boards::modelID(compatible).value_or("-") + " | " + Boards::chip(compatible).value_or("-");
}

TEST(Boards, leadToARowWithTheSameChip) {
    // What board and chip together lead to: the row's name tells the chip again where models differ by it.
    const std::tuple<const char*, const char*, const char*, const char*> rows[] = {
        {"j274", "t8103", "Macmini9,1 | Apple M1", "Mac mini (M1, 2020)"},
        {"j293", "t8103", "MacBookPro17,1 | Apple M1", "MacBook Pro (13-inch, M1, 2020)"},
        {"j313", "t8103", "MacBookAir10,1 | Apple M1", "MacBook Air (M1, 2020)"},
        {"j456", "t8103", "iMac21,1 | Apple M1", "iMac (24-inch, M1, 2021)"},
        {"j457", "t8103", "iMac21,2 | Apple M1", "iMac (24-inch, M1, 2021)"},
        {"j314s", "t6000", "MacBookPro18,3 | Apple M1 Pro", "MacBook Pro (14-inch, 2021)"},
        {"j314c", "t6001", "MacBookPro18,4 | Apple M1 Max", "MacBook Pro (14-inch, 2021)"},
        {"j316s", "t6000", "MacBookPro18,1 | Apple M1 Pro", "MacBook Pro (16-inch, 2021)"},
        {"j316c", "t6001", "MacBookPro18,2 | Apple M1 Max", "MacBook Pro (16-inch, 2021)"},
        {"j375c", "t6001", "Mac13,1 | Apple M1 Max", "Mac Studio (M1 Max, 2022)"},
        {"j375d", "t6002", "Mac13,2 | Apple M1 Ultra", "Mac Studio (M1 Ultra, 2022)"},
        {"j413", "t8112", "Mac14,2 | Apple M2", "MacBook Air (M2, 2022)"},
        {"j415", "t8112", "Mac14,15 | Apple M2", "MacBook Air (15-inch, M2, 2023)"},
        {"j493", "t8112", "Mac14,7 | Apple M2", "MacBook Pro (13-inch, M2, 2022)"},
        {"j473", "t8112", "Mac14,3 | Apple M2", "Mac mini (M2, 2023)"},
        {"j474s", "t6020", "Mac14,12 | Apple M2 Pro", "Mac mini (M2 Pro, 2023)"},
        {"j414s", "t6020", "Mac14,9 | Apple M2 Pro", "MacBook Pro (14-inch, 2023)"},
        {"j414c", "t6021", "Mac14,5 | Apple M2 Max", "MacBook Pro (14-inch, 2023)"},
        {"j416s", "t6020", "Mac14,10 | Apple M2 Pro", "MacBook Pro (16-inch, 2023)"},
        {"j416c", "t6021", "Mac14,6 | Apple M2 Max", "MacBook Pro (16-inch, 2023)"},
        {"j475c", "t6021", "Mac14,13 | Apple M2 Max", "Mac Studio (M2 Max, 2023)"},
        {"j475d", "t6022", "Mac14,14 | Apple M2 Ultra", "Mac Studio (M2 Ultra, 2023)"},
        {"j180d", "t6022", "Mac14,8 | Apple M2 Ultra", "Mac Pro (2023)"},
    };
    for (const auto& [board, chip, expected, name] : rows) {
        const std::string property = "apple,"s + board + "\0apple,"s + chip + "\0apple,arm-platform\0"s;
        EXPECT_EQ(read(property), expected);
        EXPECT_EQ(SpecCatalog::displayName(Boards::modelID(Boards::entries(property)).value_or("")), name);
    }
}

TEST(Boards, anUnknownBoardIsNoModel) {
    const std::pair<std::string, const char*> rows[] = {
        {"apple,j413\0apple,t9999\0apple,arm-platform\0"s, "Mac14,2 | Apple silicon"},
        {"apple,j999\0apple,t8112\0apple,arm-platform\0"s, "- | Apple M2"},
        {"apple,j41\0apple,t8112x\0apple,arm-platform\0"s, "- | Apple silicon"},
        {"apple,arm-platform"s, "- | Apple silicon"},
        {"\0\0apple,j413\0\0apple,t8112\0apple,arm-platform"s, "Mac14,2 | Apple M2"},
        // Another maker's board, and entries out of place.
        {"apple,j413\0apple,t8112\0"s, "- | -"},
        {"raspberrypi,4-model-b\0brcm,bcm2711\0"s, "- | -"},
        {"apple,t8112\0apple,j413\0apple,arm-platform\0"s, "- | Apple silicon"},
        {"Apple,J413\0apple,t8112\0apple,arm-platform\0"s, "- | Apple M2"},
        {"\xff\x00\x01"s, "- | -"},
        {"", "- | -"},
    };
    for (const auto& [property, expected] : rows)
        EXPECT_EQ(read(property), expected) << property;
}

} // namespace
} // namespace tessivo

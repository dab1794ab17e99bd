#include "kit/support/Uuid.h"

#include <gtest/gtest.h>
#include <set>

namespace tessivo {
namespace {

TEST(Uuid, readsEitherCaseAndWritesUpperCase) {
    const auto uuid = Uuid::parse("6f9619ff-8B86-d011-B42D-00cf4fc964ff");
    ASSERT_TRUE(uuid);
    EXPECT_EQ(uuid->bytes[0], 0x6F);
    EXPECT_EQ(uuid->bytes[15], 0xFF);
    EXPECT_EQ(uuid->text(), "6F9619FF-8B86-D011-B42D-00CF4FC964FF");
}

TEST(Uuid, refusesEveryOtherForm) {
    for (const char* text : {"", "6F9619FF8B86D011B42D00CF4FC964FF", "{6F9619FF-8B86-D011-B42D-00CF4FC964FF}",
                             "6F9619FF-8B86-D011-B42D-00CF4FC964F", "6F9619FF-8B86-D011-B42D-00CF4FC964FFF",
                             "6F9619FF-8B86-D011-B42D-00CF4FC964FG", "6F9619FF-8B86-D011-B42D+00CF4FC964FF",
                             "6F9619FF-8B86-D011-B42D 00CF4FC964FF", "6F96-9FF-8B86-D011-B42D-00CF4FC964FF",
                             "../../../../../../../../../etc/passwd"})
        EXPECT_FALSE(Uuid::parse(text)) << text;
}

TEST(Uuid, randomOnesAreOfVersionFourAndDiffer) {
    std::set<Uuid> seen;
    for (int i = 0; i < 1000; ++i) {
        const Uuid uuid = Uuid::random();
        EXPECT_EQ(uuid.text()[14], '4');
        EXPECT_NE(std::string("89AB").find(uuid.text()[19]), std::string::npos);
        seen.insert(uuid);
    }
    EXPECT_EQ(seen.size(), 1000u);
}

} // namespace
} // namespace tessivo

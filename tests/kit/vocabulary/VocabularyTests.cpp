#include "kit/vocabulary/TestID.h"
#include "kit/vocabulary/TestStatus.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

TEST(TestID, keepsItsOrderAndRawValues) {
    std::string order;
    for (const TestID test : allCases<TestID>()) {
        order += std::string(rawValue(test)) + " ";
        EXPECT_EQ(fromRawValue<TestID>(rawValue(test)), test);
        EXPECT_STRNE(title(test), "");
        EXPECT_STRNE(symbol(test), "");
    }
    EXPECT_EQ(order,
              "identity enrollment activationLock keyboard trackpad display speakers headphones microphones "
              "cameras ports ethernet storage battery ");
    EXPECT_EQ(fromRawValue<TestID>("Identity"), std::nullopt);
    EXPECT_EQ(fromRawValue<TestID>(""), std::nullopt);
    EXPECT_STREQ(title(TestID::enrollment), "Device management (MDM)");
    EXPECT_STREQ(title(TestID::ethernet), "Ethernet port");
    EXPECT_STREQ(symbol(TestID::battery), "battery.75percent");
}

TEST(TestStatus, theWordDiffersFromTheRawValue) {
    struct Row {
        TestStatus status;
        const char* raw;
        const char* label;
        Tint tint;
        bool done;
    };
    for (const Row& row :
         {Row{TestStatus::notRun, "notRun", "Not run", Tint::secondary, false},
          Row{TestStatus::unfinished, "unfinished", "Not finished", Tint::blue, false},
          Row{TestStatus::works, "works", "Works", Tint::green, true},
          Row{TestStatus::problem, "problem", "Problem", Tint::red, true},
          Row{TestStatus::checkByHand, "checkByHand", "Check by hand", Tint::orange, false},
          Row{TestStatus::notIncluded, "notIncluded", "Not included", Tint::secondary, true}}) {
        EXPECT_EQ(rawValue(row.status), row.raw);
        EXPECT_STREQ(label(row.status), row.label);
        EXPECT_EQ(tint(row.status), row.tint);
        EXPECT_EQ(isDone(row.status), row.done);
    }
}

} // namespace
} // namespace tessivo

#include "kit/hardware/EnrollmentStatus.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

TEST(EnrollmentStatus, readsTheToolsOutput) {
    using Status = EnrollmentStatus;
    const std::pair<const char*, std::optional<Status>> rows[] = {
        {"Enrolled via DEP: No\nMDM enrollment: No\n", Status{false, false, "No"}},
        {"Enrolled via DEP: Yes\nMDM enrollment: Yes (User Approved)\nMDM server: https://x/y\n",
         Status{true, true, "Yes (User Approved)"}},
        {"note\nMDM enrollment: No\nelse: yes\nENROLLED VIA DEP:  yes", Status{true, false, "No"}},
        {"\t enrolled via dep \t:\tYesterday\t\nMDM Enrollment:No", Status{true, false, "No"}},
        {"Enrolled via DEP: No\nMDM enrollment: Yes: extra", Status{false, true, "Yes: extra"}},
        {"Enrolled via DEP: Yes\nEnrolled via DEP: No\nMDM enrollment: No", Status{false, false, "No"}},
        {"Enrolled via DEP: No\r\nMDM enrollment: Yes\r\n", Status{false, true, "Yes"}},
        {"Enrolled via DEP: No\u2028MDM enrollment: Yes\u0085", Status{false, true, "Yes"}},
        {"Enrolled via DEP: No\nMDM enrollment: Y\xff", Status{false, false, "Y\uFFFD"}},
        {"Enrolled via DEP: No\nMDM enrollment:", std::nullopt},
        {"Enrolled via DEP: No\n", std::nullopt},
        {"MDM enrollment: No\n:Enrolled via DEP: No", std::nullopt},
        {"\n\r\n", std::nullopt},
        {"", std::nullopt}};
    for (const auto& [output, expected] : rows)
        EXPECT_EQ(EnrollmentStatus::parse(output), expected) << output;
}

} // namespace
} // namespace tessivo

#include "app/readers/Readers.h"
#include "platform/linux/LinuxSystemTools.h"
#include "tests/contract/ShellToolsContract.h"

namespace tessivo {
namespace {

INSTANTIATE_TEST_SUITE_P(Linux, ShellTools, testing::Values([]() -> std::unique_ptr<SystemTools> {
                             return std::make_unique<LinuxSystemTools>();
                         }));

TEST(SystemTools, standInATreeOfTheirOwn) {
    const TemporaryFolder folder;
    folder.write("tool", "#!/bin/sh\necho \"$1\"\n");
    std::filesystem::permissions(folder / "tool", std::filesystem::perms::owner_all);
    EXPECT_EQ(LinuxSystemTools(folder.path()).run("/tool", {"a b"}, {}).value_or(ToolRun()).standardOutput,
              "a b\n");
    EXPECT_FALSE(LinuxSystemTools(folder.path()).run("/bin/sh", {}, {}));
}

TEST(SystemTools, enrollmentThroughATool) {
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder / "usr/bin");
    const auto tool = [&](const std::string& script) {
        const auto file = folder.write("usr/bin/profiles", "#!/bin/sh\n" + script + "\n");
        std::filesystem::permissions(file, std::filesystem::perms::owner_all);
        return readEnrollmentStatus(LinuxSystemTools(folder.path()), {});
    };
    const EnrollmentStatus managed{true, true, "Yes (User\uFFFD Approved)"};
    EXPECT_EQ(tool("[ \"$*\" = 'status -type enrollment' ] || exit 1\n"
                   "printf 'Enrolled via DEP: Yes\\nMDM enrollment: Yes (User\\377 Approved)\\n'"),
              managed);
    EXPECT_EQ(tool("printf 'Enrolled via DEP: No\\nMDM enrollment: No\\n'; exit 1"), std::nullopt);
    EXPECT_EQ(tool("echo 'Enrolled via DEP: No'"), std::nullopt);
}

} // namespace
} // namespace tessivo

#include "platform/linux/LinuxDefaults.h"
#include "tests/SmallDisk.h"

#include <cstring>
#include <fstream>
#include <gtest/gtest.h>

using namespace tessivo;

namespace {

constexpr std::size_t diskSize = 256 * 1024;
constexpr std::size_t step = 4096;

} // namespace

TEST(FullDiskDefaults, aSessionIsTheOldOneOrTheNewOneWhateverRoomIsLeft) {
    const std::string before(9'000, 'a'), after(40'000, 'b'), notes = "Scuff on the lid";
    int kept = 0, replaced = 0;
    for (std::size_t fill = 0; fill <= diskSize; fill += step) {
        const SmallDisk disk(diskSize);
        if (!disk.isMounted()) GTEST_SKIP() << "a small disk takes root: " << std::strerror(errno);
        LinuxDefaults defaults((disk.folder() / "Tessivo.ini"));
        defaults.setText("notes", notes);
        defaults.setData("session", before);
        std::ofstream((disk.folder() / "filler")) << std::string(fill, 'x');
        defaults.setData("session", after);

        const LinuxDefaults nextLaunch((disk.folder() / "Tessivo.ini"));
        const auto session = nextLaunch.data("session");
        ASSERT_TRUE(session == before || session == after) << "with " << fill << " bytes in the way";
        EXPECT_EQ(nextLaunch.text("notes"), notes);
        ++(session == before ? kept : replaced);
        std::size_t files = 0;
        for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(disk.folder().path()))
            ++files;
        EXPECT_EQ(files, 2u) << "no stray file stays behind";
    }
    EXPECT_GT(kept, 0);
    EXPECT_GT(replaced, 0);
}

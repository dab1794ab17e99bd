#include "platform/linux/QtCameras.h"
#include "tests/platform/linux/CapturedTree.h"

#include <chrono>
#include <future>
#include <gtest/gtest.h>

namespace tessivo {
namespace {

using namespace std::chrono_literals;

TEST(QtCameras, aThreadThatIsBusyStillFinishesItsWorkAtTheEnd) {
    const TemporaryFolder folder;
    folder.write("video0", "");
    for (int round = 0; round < 20; ++round) {
        std::promise<void> listed;
        std::atomic<bool> done = false;
        {
            QtCameras cameras(folder.path());
            EXPECT_EQ(cameras.devices(), std::nullopt) << "a camera file, and no list yet";
            cameras.list([&] { listed.set_value(); });
            ASSERT_EQ(listed.get_future().wait_for(10s), std::future_status::ready);
            EXPECT_TRUE(cameras.devices());
            cameras.list([&] {
                std::this_thread::sleep_for(std::chrono::milliseconds(round % 4));
                done = true;
            });
        }
        EXPECT_TRUE(done);
    }
}

TEST(QtCameras, aCameraMadeByAProgramDoesntStandForTheMacsOwn) {
    const TemporaryFolder folder;
    CapturedTree tree;
    const auto status = [&] { return QtCameras(folder.path(), tree.tree()).authorizationStatus(); };
    EXPECT_EQ(status(), AuthorizationStatus::authorized) << "no camera";
    folder.write("video9", "");
    tree.add("sys/devices/virtual/video4linux/video9/name = Loopback");
    tree.add("sys/class/video4linux/video9 -> ../../devices/virtual/video4linux/video9");
    EXPECT_EQ(status(), AuthorizationStatus::authorized);
    // A link to nothing lets nobody in, not even root.
    std::filesystem::create_symlink("nothing", folder / "video0");
    tree.add("sys/devices/pci0000:00/usb1/video4linux/video0/name = FaceTime HD Camera");
    tree.add("sys/class/video4linux/video0 -> ../../devices/pci0000:00/usb1/video4linux/video0");
    EXPECT_EQ(status(), AuthorizationStatus::denied);
    folder.write("video1", "");
    EXPECT_EQ(status(), AuthorizationStatus::denied) << "nor does another camera";
    std::filesystem::remove(folder / "video0");
    EXPECT_EQ(status(), AuthorizationStatus::authorized);
}

} // namespace
} // namespace tessivo

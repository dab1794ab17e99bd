#include "platform/linux/CameraFiles.h"
#include "tests/platform/linux/CapturedTree.h"

#include <cerrno>
#include <gtest/gtest.h>

namespace tessivo {
namespace {

TEST(CameraFiles, aCameraMadeByAProgramDoesntStandForTheMacsOwn) {
    const TemporaryFolder folder;
    CapturedTree tree;
    const auto status = [&] { return CameraFiles(folder.path(), tree.tree()).authorizationStatus(); };
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

TEST(CameraFiles, whatCantBeOpenedSaysWhy) {
    const TemporaryFolder folder;
    EXPECT_EQ(CameraFiles::fault(folder / "gone"), OpenFault::broken);
    EXPECT_EQ(CameraFiles::fault(folder.path()), OpenFault::broken);
    EXPECT_EQ(CameraFiles::fault(folder.write("video0", "")), std::nullopt)
        << "it opens, and nobody has its buffers";
    const std::pair<int, OpenFault> errors[] = {{EBUSY, OpenFault::busy},    {EACCES, OpenFault::refused},
                                                {EPERM, OpenFault::refused}, {ENODEV, OpenFault::broken},
                                                {EIO, OpenFault::broken},    {ENXIO, OpenFault::broken}};
    for (const auto& [error, fault] : errors)
        EXPECT_EQ(CameraFiles::faultOf(error), fault) << error;
}

} // namespace
} // namespace tessivo

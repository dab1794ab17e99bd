#include "platform/linux/QtCameras.h"
#include "tests/TemporaryFolder.h"

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

} // namespace
} // namespace tessivo

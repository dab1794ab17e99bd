#include "platform/qt/QtCameras.h"

#include <atomic>
#include <chrono>
#include <future>
#include <gtest/gtest.h>
#include <thread>

namespace tessivo {
namespace {

using namespace std::chrono_literals;

TEST(QtCameras, aThreadThatIsBusyStillFinishesItsWorkAtTheEnd) {
    for (int round = 0; round < 20; ++round) {
        std::promise<void> listed;
        std::atomic<bool> done = false;
        {
            QtCameras cameras(QtCameras::ListedOn::camerasThread);
            EXPECT_EQ(cameras.devices(), std::nullopt);
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

TEST(QtCameras, aListOfTheMainThreadIsThereAtOnce) {
    QtCameras cameras(QtCameras::ListedOn::mainThread);
    bool listed = false;
    cameras.list([&] { listed = true; });
    EXPECT_TRUE(listed && cameras.devices());
    EXPECT_EQ(cameras.makeSession("no such camera", nullptr), nullptr);
}

} // namespace
} // namespace tessivo

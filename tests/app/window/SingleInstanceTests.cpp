#include "app/window/SingleInstance.h"

#include "tests/TemporaryFolder.h"

#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace tessivo {
namespace {

TEST(SingleInstance, aSecondOneLeavesTheFolderToTheFirstAndCallsIt) {
    const TemporaryFolder folder;
    const auto place = folder / "not" / "there yet";
    auto first = std::make_unique<SingleInstance>(place);
    QSignalSpy again(first.get(), &SingleInstance::startedAgain);
    EXPECT_TRUE(first->isFirst());
    {
        const SingleInstance second(place);
        EXPECT_FALSE(second.isFirst());
        qputenv("XDG_ACTIVATION_TOKEN", "from the desktop");
        EXPECT_TRUE(second.callFirst());
        qunsetenv("XDG_ACTIVATION_TOKEN");
        EXPECT_TRUE(SingleInstance(folder / "another").isFirst());
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return again.count() == 1; }));
    EXPECT_EQ(again.value(0).value(0).toByteArray(), "from the desktop");
    EXPECT_FALSE(SingleInstance(place).isFirst()) << "the second took nothing along";
    first.reset();
    EXPECT_TRUE(SingleInstance(place).isFirst());
    // What a crash left behind before the computer was given another name.
    folder.write("not/there yet/.lock", "1\ntessivo\nanother-name\nanother-machine\nanother-boot\n");
    EXPECT_TRUE(SingleInstance(place).isFirst());

    EXPECT_TRUE(SingleInstance(folder.write("file", "") / "below").isFirst()) << "no folder, nobody kept off";
}

} // namespace
} // namespace tessivo

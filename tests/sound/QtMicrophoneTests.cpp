#include "platform/qt/QtMicrophones.h"
#include "tests/sound/SoundTest.h"

#include <QCoreApplication>
#include <atomic>
#include <gmock/gmock.h>

namespace tessivo {
namespace {

/// Keeps the loudest sample.
class Loudest final : public CaptureDelegate {
public:
    void audio(const AudioBuffer& buffer) override {
        for (const float sample : buffer.samples)
            loudest = std::max(loudest.load(), std::abs(sample));
    }

    std::atomic<float> loudest = 0;
};

/// The part that runs where the test's own daemon is everybody's.
TEST(QtMicrophones, DISABLED_hearsWhatItsDeviceHears) {
    QtMicrophones microphones;
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            const auto devices = microphones.devices();
            return std::ranges::count(devices, "mic", &CaptureDevice::uniqueID) == 1;
        },
        SoundDaemon::patience));
    EXPECT_EQ(microphones.makeSession("two", nullptr), nullptr);
    const auto ears = std::make_shared<Loudest>();
    const auto session = microphones.makeSession("mic", ears);
    session->startRunning();
    EXPECT_TRUE(QTest::qWaitFor([&] { return ears->loudest > 0.4f; }, SoundDaemon::patience))
        << ears->loudest;
    EXPECT_LT(ears->loudest, 0.6f);
    session->stopRunning();
    ears->loudest = 0;
    QTest::qWait(100);
    EXPECT_EQ(ears->loudest, 0) << "stopped, the delegate isn't called any more";
}

class QtMicrophoneTest : public SoundTest {};

TEST_F(QtMicrophoneTest, aSessionDeliversItsMicrophonesSamples) {
    start({nullSink("one"), "module-remap-source master=one.monitor source_name=mic",
           "module-sine sink=one frequency=440"},
          1, 2);
    QProcess child;
    child.setProcessEnvironment(m_daemon.environment());
    child.setProcessChannelMode(QProcess::MergedChannels);
    child.start(QCoreApplication::applicationFilePath(),
                {"--gtest_filter=QtMicrophones.DISABLED_*", "--gtest_also_run_disabled_tests"});
    ASSERT_TRUE(child.waitForFinished(60'000)) << child.errorString().toStdString();
    const std::string output = child.readAll().toStdString();
    EXPECT_THAT(output, ::testing::HasSubstr("[  PASSED  ] 1 test.")) << output;
}

} // namespace
} // namespace tessivo

#pragma once

#include "platform/linux/PulseServer.h"
#include "tests/sound/SoundDaemon.h"

#include <QTest>
#include <cstring>
#include <gtest/gtest.h>

namespace tessivo {

/// Records a source's samples from the moment they begin to flow.
class SoundRecorder final {
public:
    SoundRecorder(const SoundDaemon& daemon, const QString& source, int channels = 2) {
        m_process.setProcessEnvironment(daemon.environment());
        m_process.start("parec", {"-d", source, "--raw", "--format=float32le", "--rate=48000",
                                  QString("--channels=%1").arg(channels), "--no-remix", "--latency-msec=20"});
        flowing = QTest::qWaitFor([this] { return m_process.bytesAvailable() > 0; }, SoundDaemon::patience);
    }
    ~SoundRecorder() {
        m_process.kill();
        m_process.waitForFinished(SoundDaemon::patience);
    }

    bool flowing = false;

    /// Everything so far, interleaved.
    const std::vector<float>& samples() {
        m_bytes += m_process.readAllStandardOutput();
        m_samples.resize(std::size_t(m_bytes.size()) / sizeof(float));
        std::memcpy(m_samples.data(), m_bytes.constData(), m_samples.size() * sizeof(float));
        return m_samples;
    }

    /// One channel of everything so far.
    std::vector<float> channel(int number, int channels = 2) {
        const std::vector<float>& all = samples();
        std::vector<float> one;
        for (std::size_t i = std::size_t(number); i < all.size(); i += std::size_t(channels))
            one.push_back(all[i]);
        return one;
    }

private:
    QProcess m_process;
    QByteArray m_bytes;
    std::vector<float> m_samples;
};

/// A daemon and our connection to it.
class SoundTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (!SoundDaemon::isInstalled()) GTEST_SKIP() << "pulseaudio or its client programs aren't installed";
    }

    /// Starts the daemon and waits until its devices are known.
    void start(const QStringList& modules, std::size_t sinks, std::size_t sources) {
        ASSERT_TRUE(m_daemon.start(modules));
        ASSERT_TRUE(hasDevices(sinks, sources));
    }

    bool hasDevices(std::size_t sinks, std::size_t sources) {
        return QTest::qWaitFor(
            [&] {
                const auto devices = m_server->snapshot();
                return devices->sinks.size() == sinks && devices->sources.size() == sources;
            },
            SoundDaemon::patience);
    }

    static QString nullSink(const QString& name, int channels = 2, const QString& more = {}) {
        return QString("module-null-sink sink_name=%1 format=float32le rate=48000 channels=%2 norewinds=1 %3")
            .arg(name)
            .arg(channels)
            .arg(more);
    }

    SoundDaemon m_daemon;
    std::shared_ptr<PulseServer> m_server = std::make_shared<PulseServer>(m_daemon.address());
};

} // namespace tessivo

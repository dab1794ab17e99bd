// The sound and camera pages' share of the main thread, how soon a microphone opens and closes, and what
// 500 openings leave behind. Starts a PulseAudio daemon of its own.

#include "app/readers/CameraMonitor.h"
#include "app/readers/MicMonitor.h"
#include "app/readers/Readers.h"
#include "platform/linux/LinuxAudioObjects.h"
#include "platform/linux/LinuxCaptureDevices.h"
#include "platform/qt/QtScheduler.h"
#include "platform/simulated/ManualScheduler.h"
#include "tests/sound/SoundDaemon.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstring>

namespace tessivo {
namespace {

using namespace std::chrono_literals;

struct Bench {
    Bench() {
        daemon.start(
            {"module-null-sink sink_name=one rate=48000 channels=2 norewinds=1",
             "module-null-sink sink_name=two rate=48000 channels=2 norewinds=1",
             "module-remap-source master=one.monitor source_name=mic source_properties=device.class=sound"});
        waitFor([this] { return server->snapshot()->sources.size() == 3; });
    }

    template <class Condition>
    static bool waitFor(Condition condition) {
        QElapsedTimer time;
        time.start();
        while (!condition() && time.elapsed() < SoundDaemon::patience)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
        return condition();
    }

    bool released() const { return !daemon.run("pactl", {"list", "source-outputs"}).contains("\"Tessivo\""); }

    SoundDaemon daemon;
    std::shared_ptr<PulseServer> server = std::make_shared<PulseServer>(daemon.address());
    LinuxCaptureDevices devices{server};
};

Bench* bench = nullptr;
const CaptureDevice microphone{"mic", "Microphone"};

/// Sends what it is told to, on whichever thread asks.
struct TestDevices final : CaptureDevices {
    struct Session final : CaptureSession {
        void startRunning() override {}
        void stopRunning() override {}
    };
    CaptureList devices(MediaType) const override { return {}; }
    AuthorizationStatus authorizationStatus(MediaType) const override {
        return AuthorizationStatus::authorized;
    }
    void requestAccess(MediaType, std::function<void(bool)>) override {}
    std::shared_ptr<CaptureSession> makeSession(MediaType, const std::string&,
                                                std::shared_ptr<CaptureDelegate> given) override {
        delegate = std::move(given);
        return std::make_shared<Session>();
    }
    std::shared_ptr<CaptureDelegate> delegate;
};

void headphonePoll(benchmark::State& state) {
    const LinuxAudioObjects audio(bench->server);
    for (auto _ : state)
        benchmark::DoNotOptimize(HeadphoneDetect::find(readAudioOutputs(audio)));
}
BENCHMARK(headphonePoll);

void microphonePoll(benchmark::State& state) {
    TestDevices devices;
    ManualScheduler scheduler;
    MicMonitor monitor(devices, scheduler);
    monitor.listen(microphone, [](double level) { benchmark::DoNotOptimize(level); });
    std::vector<float> samples(960, 0.1f);
    for (auto _ : state) {
        state.PauseTiming();
        samples[0] += 0.01f;
        devices.delegate->audio({.samples = samples, .channelCount = 1});
        state.ResumeTiming();
        scheduler.advance(MicMonitor::interval);
    }
}
BENCHMARK(microphonePoll);

void cameraPoll(benchmark::State& state) {
    TestDevices devices;
    ManualScheduler scheduler;
    CameraMonitor monitor(devices, scheduler);
    monitor.show({"camera", "Camera"}, {});
    for (auto _ : state)
        scheduler.advance(CameraMonitor::interval);
}
BENCHMARK(cameraPoll);

void levelOfABuffer(benchmark::State& state) {
    LevelTap tap;
    const std::vector<float> samples(960 * 2, 0.1f); // 20 ms of two channels
    for (auto _ : state)
        tap.audio({.samples = samples, .channelCount = 2});
}
BENCHMARK(levelOfABuffer);

double median(std::vector<double> values) {
    std::ranges::sort(values);
    return values.empty() ? 0 : values[values.size() / 2];
}

void openingAndClosing() {
    QtScheduler scheduler;
    MicMonitor monitor(bench->devices, scheduler);
    std::vector<double> opening, calling, closing;
    for (int i = 0; i < 15; ++i) {
        QElapsedTimer time;
        time.start();
        bool heard = false;
        monitor.listen(microphone, [&](double) { heard = true; });
        calling.push_back(double(time.nsecsElapsed()) / 1e6);
        if (Bench::waitFor([&] { return heard; })) opening.push_back(double(time.nsecsElapsed()) / 1e6);
        time.restart();
        monitor.stop();
        calling.push_back(double(time.nsecsElapsed()) / 1e6);
        if (Bench::waitFor([&] { return bench->released(); }))
            closing.push_back(double(time.nsecsElapsed()) / 1e6);
    }
    QElapsedTimer time;
    time.start();
    bench->released();
    std::printf("listen() or stop() on the main thread: median %.3f ms, longest %.3f ms\n", median(calling),
                *std::ranges::max_element(calling));
    std::printf("Listen to the first level:             median %.1f ms (polled every 100 ms)\n",
                median(opening));
    std::printf("Stop to the device's release:          median %.1f ms (asking alone takes %.1f ms)\n",
                median(closing), double(time.nsecsElapsed()) / 1e6);
}

long status(const char* key) {
    const std::string text = bytesOf("/proc/self/status");
    const std::size_t found = text.find(key);
    return found == std::string::npos ? -1
                                      : std::strtol(text.c_str() + found + std::strlen(key), nullptr, 10);
}

void manyCycles() {
    QtScheduler scheduler;
    MicMonitor monitor(bench->devices, scheduler);
    for (int cycle = 1; cycle <= 500; ++cycle) {
        bool heard = false;
        monitor.listen(microphone, [&](double) { heard = true; });
        if (cycle == 1) Bench::waitFor([&] { return heard; });
        QThread::msleep(10);
        QCoreApplication::processEvents();
        monitor.stop();
        if (cycle != 1 && cycle != 500) continue;
        Bench::waitFor([&] { return bench->released(); });
        std::printf("after %3d openings: %ld threads, %ld kB resident\n", cycle, status("Threads:"),
                    status("VmRSS:"));
    }
}

} // namespace
} // namespace tessivo

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    if (!tessivo::SoundDaemon::isInstalled()) {
        std::puts("pulseaudio isn't installed: nothing to measure");
        return 1;
    }
    tessivo::Bench bench;
    tessivo::bench = &bench;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    tessivo::openingAndClosing();
    tessivo::manyCycles();
}

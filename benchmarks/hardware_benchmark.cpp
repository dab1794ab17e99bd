// What reading a changing computer costs: one scan of many devices and interfaces, and an open Ports page.
#include "app/look/Theme.h"
#include "app/pages/Pages.h"
#include "app/readers/Readers.h"
#include "benchmarks/Bench.h"
#include "platform/linux/LinuxPlatform.h"

#include <QApplication>
#include <benchmark/benchmark.h>
#include <ctime>
#include <fstream>

namespace {

using namespace tessivo;
using namespace tessivo::bench;
namespace fs = std::filesystem;

constexpr int deviceCount = 200;
constexpr int interfaceCount = 50;

void put(const fs::path& file, const std::string& text) {
    fs::create_directories(file.parent_path());
    std::ofstream(file) << text << '\n';
}

/// A system tree with many USB devices and network interfaces, as the kernel lays them out.
class BusyTree {
public:
    BusyTree() {
        for (int i = 0; i < deviceCount; ++i) {
            const fs::path device = root() / "sys/bus/usb/devices" /
                                    (std::to_string(1 + i / 100) + "-" + std::to_string(1 + i % 100));
            put(device / "product", "Device " + std::to_string(i));
            put(device / "manufacturer", "Maker");
            put(device / "idVendor", "0951");
            put(device / "idProduct", "1666");
            put(device / "bDeviceClass", "00");
            put(device / "speed", "5000");
        }
        for (int i = 0; i < interfaceCount; ++i) {
            const fs::path port = root() / "sys/class/net" / ("eth" + std::to_string(i));
            put(port / "type", "1");
            put(port / "operstate", "up");
            put(port / "carrier", "1");
            put(port / "speed", "1000");
        }
    }

    const fs::path& root() const { return m_folder.path(); }

private:
    Folder m_folder;
};

void scanUSB(benchmark::State& state) {
    const BusyTree tree;
    LinuxPlatform platform(tree.root());
    std::size_t found = 0;
    for (auto _ : state)
        found = readUSBDevices(platform.registry()).size();
    state.counters["devices"] = double(found);
}
BENCHMARK(scanUSB)->Unit(benchmark::kMicrosecond);

void scanInterfaces(benchmark::State& state) {
    const BusyTree tree;
    LinuxPlatform platform(tree.root());
    std::size_t found = 0;
    for (auto _ : state)
        found = readWiredInterfaces(platform.registry()).size();
    state.counters["interfaces"] = double(found);
}
BENCHMARK(scanInterfaces)->Unit(benchmark::kMicrosecond);

double processorSeconds() {
    timespec time{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) / 1e9;
}

/// An open Ports page over 60 simulated seconds, with a device plugged and pulled every five.
void openPortsPage(benchmark::State& state) {
    using namespace std::chrono_literals;
    constexpr int seconds = 60;
    Mac mac;
    AppModel model(mac.platform);
    double used = 0;
    for (auto _ : state) {
        std::unique_ptr<QWidget> page(makePage(Page::ports, {model, mac.dialogs}, nullptr));
        page->resize(pageSize);
        page->show();
        QApplication::processEvents();
        const double before = processorSeconds();
        for (int second = 0; second < seconds; ++second) {
            if (second % 10 == 0) mac.controls.plugUSB("Stick", 0x0951, 0x1666, 0x01100000);
            if (second % 10 == 5) mac.controls.unplugUSB(0x01100000);
            mac.clock.advance(1s);
            QApplication::processEvents();
        }
        used += processorSeconds() - before;
    }
    state.counters["processor share %"] = 100 * used / double(state.iterations()) / seconds;
}
BENCHMARK(openPortsPage)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const Theme theme(application);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
